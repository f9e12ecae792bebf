// Random keys and mouse on the whole program; `./dev soak` runs it long, against a build with sanitizers. In
// the environment: MURBO_SOAK_SECONDS (3), MURBO_SOAK_SEED (1), MURBO_SOAK_RECORDING for a real recording in
// the project, MURBO_PROGRAM for another program.
#include "core/intake/Sources.h"
#include "core/model/package/ProjectPackage.h"
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

#include <chrono>
#include <random>

using namespace murbo;

namespace {

double number(const char* variable, double standard) {
    const auto* text = std::getenv(variable);
    return text ? std::atof(text) : standard;
}

using Clock = std::chrono::steady_clock;

double minutesSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count() / 60;
}

/// How much memory a process has held, minute by minute. A leak is a slope that does not end.
class MemorySlope {
public:
    void look(pid_t process, double minute) {
        if (!samples.empty() && minute < samples.back().minute + 0.25) return;
        if (process != of) samples.clear(); // another program begins anew
        of = process;
        samples.push_back({minute, held(process)});
    }
    /// MB an hour over the second half, when all that is kept has been filled.
    double slope() const {
        const auto& from = samples[samples.size() / 2];
        const auto& to = samples.back();
        return 60 * (to.megabytes - from.megabytes) / std::max(to.minute - from.minute, 0.25);
    }
    void print() const {
        if (samples.size() < 4) return;
        for (std::size_t at = 0; at < samples.size(); at += std::max<std::size_t>(samples.size() / 12, 1))
            std::printf("  %5.1f min %7.0f MB\n", samples[at].minute, samples[at].megabytes);
        std::printf("  in the second half %+.0f MB an hour\n", slope());
    }

private:
    struct MemorySample {
        double minute = 0;
        double megabytes = 0;
    };
    static double held(pid_t process) {
        std::ifstream file("/proc/" + std::to_string(process) + "/statm");
        double all = 0;
        double resident = 0;
        file >> all >> resident;
        return resident * 4096 / (1 << 20);
    }

    std::vector<MemorySample> samples;
    pid_t of = -1;
};

class Soak : public Scenario {
protected:
    /// The made movies, and where there is one a real recording with clips and cuts of it.
    Project soaked() {
        auto project = scenario::cutVideo();
        const char* recording = std::getenv("MURBO_SOAK_RECORDING");
        if (!recording) return project;
        const auto files = Intake::lengths({recording});
        const auto added = Sources::add(project, files, "Recording", Source::Kind::stream);
        if (added.empty()) throw std::runtime_error(std::string("This can't be read: ") + recording);
        const double length = project.source(added.front())->length;
        for (int at = 0; at < 12; ++at) {
            const double from = length * at / 13;
            const double to = std::min(from + 40, length);
            project.clips.edit().push_back(
                {.number = ++project.lastClip, .source = added.front(), .start = from, .end = to});
            project.videos.edit()[0].cuts.edit().push_back(
                {.source = added.front(), .start = from, .end = std::min(from + 2.5, length)});
        }
        return project;
    }
    int below(int end) { return static_cast<int>(chance() % static_cast<unsigned>(end)); }
    ScreenPoint anywhere() { return {5.0 + below(1270), 5.0 + below(790)}; }
    /// Most of the time on the timeline, where a press means most.
    ScreenPoint somewhere() {
        return below(3) ? ScreenPoint{90.0 + below(870), 500.0 + below(290)} : anywhere();
    }

    /// A drag that waits for nothing: there may be no window any more that could take it.
    void fling(ScreenPoint from, ScreenPoint to) {
        screen().move(from);
        screen().press();
        for (const double share : {0.3, 0.7, 1.0})
            screen().move({from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share});
        screen().release();
    }

    void anyKey() {
        static const auto keys = [] {
            std::istringstream names(
                "Space J K L I O X E W A T B H S N Delete F U 1 2 3 Z M P Left Right Shift+Left "
                "Shift+Right Up Down Home End Ctrl+B Alt+[ Alt+] Ctrl+D Ctrl+Z Ctrl+Z Ctrl+Z "
                "Ctrl+Shift+Z Ctrl+= Ctrl+- Shift+Z Ctrl+Right Ctrl+Left Ctrl+Up Ctrl+Down "
                "Ctrl+Shift+Right F6 Shift+F6 Tab Escape Return Ctrl+1 Ctrl+2 Ctrl+3 Ctrl+4 Ctrl+5");
            return std::vector<std::string>(std::istream_iterator<std::string>(names), {});
        }();
        key(keys[static_cast<std::size_t>(below(static_cast<int>(keys.size())))]);
    }
    /// Whatever the palette has for three letters.
    void anyAction() {
        key("Ctrl+K");
        for (int at = 0; at < 3; ++at) type(std::string(1, "aeiourstlnmc"[below(12)]));
        key("Down", below(3));
        key("Return");
        if (below(2)) key("Escape");
    }
    /// Waits until it has taken all that was done.
    void answers() {
        if (!items().empty()) return;
        untilAtLast("it answers or has ended",
                    [&] { return !program().process().runs() || !items().empty(); });
    }
    /// Some of what is done closes the window; then the next begins.
    void keepOpen() {
        if (!program().process().runs() && program().process().status() == 0)
            start({"--open", package.string()});
    }
    void anything() {
        const int kind = below(20);
        if (kind < 10) return anyKey();
        if (kind < 14) return click(somewhere());
        if (kind < 17) return fling(somewhere(), somewhere());
        if (kind == 17) return click(somewhere(), below(2) ? 4 : 5);
        if (kind == 18) {
            click(somewhere(), 3);
            return key("Escape");
        }
        anyAction();
    }

    std::mt19937 chance{static_cast<unsigned>(number("MURBO_SOAK_SEED", 1))};
};

}

TEST_F(Soak, nothingThatSomebodyDoesEndsTheProgram) {
    ProjectPackage::write(soaked(), package, nullptr);
    start({"--open", package.string()});
    const double seconds = number("MURBO_SOAK_SECONDS", 3);
    std::printf("seed %.0f\n", number("MURBO_SOAK_SEED", 1));
    const auto begun = Clock::now();
    MemorySlope memory;
    int deeds = 0;
    while (minutesSince(begun) * 60 < seconds && program().process().runs()) {
        anything();
        if (++deeds % 10 == 0) answers();
        keepOpen();
        memory.look(program().process().id(), minutesSince(begun));
    }
    std::printf("%d deeds\n", deeds);
    memory.print();
    ASSERT_TRUE(program().process().runs()) << program().log();
    key("Escape", 3);
    untilAtLast("it still has its window", [&] { return screen().hasWindow(); });
    EXPECT_FALSE(onDisk().sources.empty());
    program().process().end();
    EXPECT_EQ(program().log().find("Sanitizer"), std::string::npos) << program().log();
    EXPECT_EQ(program().log().find("runtime error"), std::string::npos) << program().log();
    start({"--open", package.string()});
}
