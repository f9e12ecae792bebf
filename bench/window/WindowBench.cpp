// The window on long projects, drawn in the software renderer without a screen: from opening to the first
// picture, a frame of scrolling and of zooming, from a key to what it changed, and what rest costs.
//
//     bench_desktop [SECONDS OF REST] [RECORDING]   memory with that recording open, where one is named
#include "app/desktop/Desktop.h"
#include "app/desktop/ProjectWindow.h"
#include "app/desktop/timeline/TimelineView.h"
#include "bench/model/BigProject.h"
#include "core/intake/Intake.h"
#include "core/intake/Sources.h"
#include "core/model/package/ProjectPackage.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QTest>
#include <algorithm>
#include <chrono>
#include <fstream>

#include <fmt/format.h>
#include <sys/resource.h>
#include <unistd.h>

namespace murbo::window {
namespace {

namespace fs = std::filesystem;

constexpr int patience = 30000; ///< ms

/// Milliseconds of processor time, of this thread or of all.
double processor(int whose) {
    rusage used{};
    getrusage(whose, &used);
    const auto in = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return in(used.ru_utime) + in(used.ru_stime);
}

double megabytes() {
    std::ifstream file("/proc/self/statm");
    std::size_t all = 0;
    std::size_t held = 0;
    file >> all >> held;
    return static_cast<double>(held) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

/// What a step takes that is done often.
class StepTimes {
public:
    void add(double time) { all.push_back(time); }
    double median() {
        std::ranges::sort(all);
        return all.empty() ? 0 : all[all.size() / 2];
    }
    double longest() { return all.empty() ? 0 : *std::ranges::max_element(all); }

private:
    std::vector<double> all;
};

void say(const char* what, double median, double longest, const char* unit, double most) {
    fmt::print("{:<44}{:8.1f}{:8.1f} {:<4} under {:.0f} {}\n", what, median, longest, unit, most,
               median < most ? "ok" : "NO");
}

/// One open window of 1920 x 1080.
class OpenWindow {
public:
    explicit OpenWindow(const fs::path& package) : desktop({}) {
        opened = desktop.open(package);
        if (!opened) throw std::runtime_error(desktop.problem().toStdString());
        window().resize(1920, 1080);
    }
    QQuickWindow& window() { return opened->window(); }
    Editor& editor() { return opened->project().editor(); }
    TimelineView& timeline() { return *window().findChild<TimelineView*>(); }

    void rest(int milliseconds = 300) {
        QElapsedTimer since;
        since.start();
        const auto link = QObject::connect(&window(), &QQuickWindow::frameSwapped, [&] { since.restart(); });
        QElapsedTimer whole;
        whole.start();
        while ((since.elapsed() < milliseconds || editor().isBusy()) && whole.elapsed() < patience)
            QGuiApplication::processEvents(QEventLoop::AllEvents, 20);
        QObject::disconnect(link);
    }
    /// Does something and waits until it is drawn. What that took: on the clock, and of this thread.
    std::pair<double, double> drawn(const std::function<void()>& deed) {
        bool painted = false;
        const auto link = QObject::connect(&window(), &QQuickWindow::frameSwapped, [&] { painted = true; });
        QElapsedTimer clock;
        clock.start();
        const double before = processor(RUSAGE_THREAD);
        deed();
        while (!painted && clock.elapsed() < patience)
            QGuiApplication::processEvents(QEventLoop::AllEvents, 1);
        QObject::disconnect(link);
        return {static_cast<double>(clock.nsecsElapsed()) / 1e6, processor(RUSAGE_THREAD) - before};
    }

private:
    Desktop desktop;
    ProjectWindow* opened = nullptr;
};

fs::path folder() {
    static const auto made = [] {
        const auto path = fs::temp_directory_path() / fmt::format("murbo-desktop-{}", ::getpid());
        fs::create_directories(path);
        return path;
    }();
    return made;
}

/// The ten-hour project with one video more, of some 2,000 blocks, which comes first.
Project longest() {
    auto project = bigProject();
    Video video{.number = ++project.lastVideo, .title = "All of it"};
    for (int at = 0; at < 660; ++at) {
        const auto& source = project.sources[static_cast<std::size_t>(at % 10)];
        const double start = 9 + (at / 10) * 54.0;
        video.cuts.edit().push_back({.source = source.id, .start = start, .end = start + 3.5});
    }
    auto& videos = project.videos.edit();
    videos.insert(videos.begin(), video);
    return project;
}

void opening(const fs::path& package) {
    for (int at = 0; at < 3; ++at) {
        QElapsedTimer clock;
        clock.start();
        const double before = processor(RUSAGE_SELF);
        OpenWindow shown(package);
        bool painted = false;
        QObject::connect(&shown.window(), &QQuickWindow::frameSwapped, [&] { painted = true; });
        while (!painted && clock.elapsed() < patience)
            QGuiApplication::processEvents(QEventLoop::AllEvents, 1);
        fmt::print("{:<44}{:8.0f} ms on the clock, {:.0f} ms of processor time, under 500\n",
                   at ? "  once more" : "open the ten-hour project, first picture",
                   static_cast<double>(clock.nsecsElapsed()) / 1e6, processor(RUSAGE_SELF) - before);
        shown.rest();
    }
}

/// A frame at a time, so that each is drawn by itself.
template <class Step>
void frames(const char* what, OpenWindow& shown, const Step& step) {
    StepTimes own;
    StepTimes all;
    for (int at = 0; at < 60; ++at) {
        const double before = processor(RUSAGE_SELF);
        own.add(shown.drawn([&] { step(at); }).second);
        all.add(processor(RUSAGE_SELF) - before);
    }
    say(what, own.median(), own.longest(), "ms", 10);
    fmt::print("{:<44}{:8.1f}{:8.1f} ms\n", "  with all threads", all.median(), all.longest());
}

void moving(OpenWindow& shown) {
    auto& timeline = shown.timeline();
    fmt::print("{} blocks, {:.0f} s\n", timeline.blockCount(), shown.timeline().shown().length);
    shown.rest();
    frames("scroll, whole video in view", shown, [&](int at) { timeline.setScroll(at * 2.0); });
    for (int at = 0; at < 14; ++at) timeline.zoomStep(true);
    shown.rest();
    frames("scroll, near", shown, [&](int at) { timeline.setScroll(100 + at * 0.7); });
    frames("zoom", shown, [&](int at) { timeline.zoomRound(at % 20 < 10 ? 0.9 : 1 / 0.9, 600); });
    shown.rest();
}

void keys(OpenWindow& shown) {
    StepTimes clock;
    StepTimes own;
    for (int at = 0; at < 20; ++at) {
        shown.editor().playback.seek(30 + at * 3.7);
        shown.rest(60);
        const auto [wall, thread] =
            shown.drawn([&] { QTest::keyClick(&shown.window(), Qt::Key_B, Qt::ControlModifier); });
        clock.add(wall);
        own.add(thread);
    }
    say("key, commit, repaint: on the clock", clock.median(), clock.longest(), "ms", 50);
    say("  of the window's thread", own.median(), own.longest(), "ms", 50);
}

void resting(OpenWindow& shown, int seconds) {
    shown.rest(2000);
    int painted = 0;
    QObject::connect(&shown.window(), &QQuickWindow::frameSwapped, [&] { ++painted; });
    const double before = processor(RUSAGE_SELF);
    QTest::qWait(1000); // what waits itself costs
    const double idle = processor(RUSAGE_SELF) - before;
    QEventLoop loop;
    QTimer::singleShot(seconds * 1000, &loop, &QEventLoop::quit);
    const double start = processor(RUSAGE_SELF);
    loop.exec();
    const double used = processor(RUSAGE_SELF) - start;
    fmt::print(
        "rest over {} s: {:.1f} ms of processor time ({:.3f} % of a core, under 0.5), {} pictures drawn; "
        "the second before {:.1f} ms\n",
        seconds, used, used / (seconds * 10.0), painted, idle);
}

void holding(const fs::path& recording) {
    Project project;
    Sources::add(project, Intake::lengths({recording}), "Stream", Source::Kind::file, 100000);
    const auto package = folder() / "recording.mbproj";
    ProjectPackage::write(project, package, nullptr);
    OpenWindow shown(package);
    shown.rest();
    shown.editor().holdClip(shown.editor().project().clips[0].id);
    shown.rest(1500);
    for (int at = 0; at < 20; ++at) {
        shown.editor().source.seek(at * shown.editor().source.spanEnd() / 20);
        shown.rest(200);
    }
    fmt::print("a recording of {:.1f} h open and looked through: {:.0f} MB, under 700\n",
               shown.editor().source.spanEnd() / 3600, megabytes());
}

void run(int count, char** words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("XDG_CONFIG_HOME", (folder() / "config").c_str());
    qputenv("HOME", (folder() / "home").c_str());
    const QGuiApplication application(count, words);
    Desktop::setUp();
    const auto package = folder() / "long.mbproj";
    ProjectPackage::write(longest(), package, nullptr);
    opening(package);
    {
        OpenWindow shown(package);
        shown.rest();
        moving(shown);
        keys(shown);
        const int seconds = count > 1 ? std::atoi(words[1]) : 0;
        resting(shown, seconds > 0 ? seconds : 10);
        fmt::print("memory with that project: {:.0f} MB\n", megabytes());
    }
    if (count > 2 && fs::exists(words[2])) holding(words[2]);
    fs::remove_all(folder());
}

}
}

int main(int count, char** words) {
    murbo::window::run(count, words);
}
