// Movies that come out while editing goes on.
#include "tests/scenarios/ChildProcess.h"
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

using namespace murbo;

namespace {

/// The decoded pictures of a movie, as one number.
std::string pictures(const std::filesystem::path& movie) {
    return made::output("ffmpeg -nostdin -v error -i " + made::quoted(movie) + " -map 0:v -f md5 -");
}

/// How loud a tone is in a movie, in dB.
double loudness(const std::filesystem::path& movie, int hertz) {
    const auto said = made::output("ffmpeg -nostdin -hide_banner -i " + made::quoted(movie) +
                                   " -af bandpass=f=" + std::to_string(hertz) +
                                   ":width_type=h:w=20,volumedetect -f null - 2>&1");
    const std::string before = "mean_volume: ";
    const auto at = said.find(before);
    return at == said.npos ? -100 : std::atof(said.c_str() + at + before.size());
}

class Exporting : public Scenario {
protected:
    /// A video of some cuts, each of that length in seconds.
    void openShort(double length, int count = 1) {
        auto project = scenario::cutVideo();
        auto& cuts = project.videos.edit()[0].cuts.edit();
        cuts.clear();
        for (int cut = 0; cut < count; ++cut)
            cuts.push_back({.source = project.sources[1].id, .start = 0.5, .end = 0.5 + length});
        open(project);
        block("Cut", 1);
        std::filesystem::create_directories(out);
    }
    void begin(const std::string& name) {
        key("Ctrl+E");
        until("the name can be typed over", [&] { return see("EditableText", "Save as").focused; });
        typeOver("Save as", name);
        typeOver("Folder", out.string());
        key("Ctrl+Return");
    }
    void finish(const std::filesystem::path& movie) {
        untilAtLast("the movie is there", [&] { return std::filesystem::exists(movie); });
        untilAtLast("nothing is at work", [&] { return !find("ProgressBar", "Exporting"); });
    }

    std::filesystem::path out = folder / "out";
};

}

TEST_F(Exporting, editingGoesOnAndTheMovieIsThatOfTheCommandLine) {
    openShort(1.5);
    begin("one.mp4");
    see("Button", "Hide");
    key("Escape Home Right*20 Ctrl+B");
    until("a cut is made meanwhile", [&] { return video().cuts.size() == 2; });
    finish(out / "one.mp4");
    takeBackTo(before);

    program().process().end();
    const auto command = std::string(MURBO_PROGRAM) + " --export " + made::quoted(package) + " V1 " +
                         made::quoted(out / "two.mp4") + " >/dev/null";
    ASSERT_EQ(std::system(command.c_str()), 0);
    EXPECT_EQ(pictures(out / "one.mp4"), pictures(out / "two.mp4"));
    start({"--open", package.string()});
}

TEST_F(Exporting, aStoppedMovieLeavesNothingAndItsPlaceIsFree) {
    openShort(11, 40); // long enough to be stopped
    begin("half.mp4");
    until("the buttons stand in their places", [&] {
        const auto stop = find("Button", "Stop", "Export");
        const auto hide = find("Button", "Hide", "Export");
        return stop && hide && stop->x > 800 && stop->x + stop->width < hide->x;
    });
    clickOn("Button", "Stop", "Export");
    until("it has stopped", [&] { return !find("Button", "Hide", "Export").has_value(); });
    until("nothing is left", [&] { return entriesIn(out) == 0; });
    key("Escape");
    undoToStart();
}

TEST_F(Exporting, theDesktopIsKeptAwakeAndHearsOfTheMovieWhereTheWindowIsLeft) {
    for (const auto* program : {"dbus-daemon", "dbus-monitor"})
        if (!VirtualScreen::installed(program)) GTEST_SKIP() << program << " is not here.";
    openShort(1.5);
    const auto bus = "unix:path=" + (folder / "bus").string();
    const ChildProcess daemon({"dbus-daemon", "--session", "--nofork", "--nopidfile", "--address=" + bus}, {},
                              folder / "daemon.log");
    until("there is a session bus", [&] { return std::filesystem::exists(folder / "bus"); });
    const ChildProcess monitor({"dbus-monitor", "--address", bus, "type='method_call'"}, {},
                               folder / "calls");
    const auto called = [&](const std::string& method) {
        const auto calls = contentsOf(folder / "calls");
        const auto at = calls.find("member=" + method);
        return at == calls.npos ? "" : calls.substr(at, calls.find("method call", at) - at);
    };
    until("all calls are seen", [&] { return !contentsOf(folder / "calls").empty(); });

    program().process().end();
    start({"--open", package.string()}, {{"DBUS_SESSION_BUS_ADDRESS", bus}});
    begin("one.mp4");
    until("no sleep is asked for", [&] { return !called("Inhibit").empty(); });
    EXPECT_THAT(called("Inhibit"), testing::HasSubstr("Exporting Falls"));
    screen().leaveWindows();
    finish(out / "one.mp4");
    until("a notice says so", [&] { return !called("Notify").empty(); });
    EXPECT_THAT(called("Notify"), testing::HasSubstr("Exported Falls"));
}

TEST_F(Exporting, aSongAndASoundAreDraggedInAndTheMovieObeysWhatIsMutedAlone) {
    const auto library = home / "home/Movies/Murbo";
    const auto tone = [&](const char* name, int hertz) {
        const auto file = made::file(std::string(name) + ".wav",
                                     fmt::format("-f lavfi -i sine=frequency={}:duration=1.5", hertz));
        std::filesystem::create_directories(library / name);
        std::filesystem::copy(file, library / name / file.filename());
    };
    tone("Sounds", 1500);
    tone("Music", 3000);
    openShort(1.4);
    const auto look = [&] { return video().look.value_or(Look()); };
    const auto cut = block("Cut", 1);
    turnTo("Sounds");
    drag(still("ListItem", "Sounds", "Library").middle(), {cut.at(0.1).x, cut.middle().y});
    until("the sound is in it", [&] { return look().sounds.size() == 1; });
    turnTo("Music");
    drag(still("ListItem", "Music", "Library").middle(), {cut.x + 1, cut.middle().y});
    until("the song is in it", [&] { return look().music.size() == 1; });
    clickOn("Button", "Mute Video");
    until("the footage is muted", [&] { return look().mix && look().mix->isMuted(Lane::video); });
    clickOn("Button", "Solo Sounds");
    until("the sounds are heard alone", [&] { return see("Button", "Solo Sounds").checked; });
    begin("heard.mp4");
    finish(out / "heard.mp4");
    key("Escape");
    EXPECT_LT(loudness(out / "heard.mp4", 220), -60) << "what is muted is not in it";
    EXPECT_GT(loudness(out / "heard.mp4", 1500), -45);
    EXPECT_GT(loudness(out / "heard.mp4", 3000), -45) << "listening to a row alone leaves the others in";
    key("Ctrl+Z", 2);
    until("both are gone", [&] { return look().sounds.empty() && look().music.empty(); });
    EXPECT_TRUE(look().mix && look().mix->isMuted(Lane::video)) << "mutes are no steps";
}
