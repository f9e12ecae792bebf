// The window on long projects and recordings, drawn in the software renderer, without a screen unless
// QT_QPA_PLATFORM names another. Each measurement is a process of its own, beside its yardstick:
//
//     bench_window          all of them
//     bench_window NAME…    those of these names
//
// MURBO_BENCH_SECONDS is how long is played and rested (20).
#include "app/desktop/timeline/TimelineView.h"
#include "app/desktop/viewer/FrameView.h"
#include "app/desktop/viewer/WaveStrip.h"
#include "app/editor/commands/CutCommands.h"
#include "bench/job/Measured.h"
#include "bench/playback/Yardstick.h"
#include "bench/window/LongProject.h"
#include "bench/window/OpenWindow.h"
#include "core/model/package/ProjectPackage.h"
#include "platform/media/FrameReader.h"

#include <QGuiApplication>
#include <QPainter>
#include <QQuickPaintedItem>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <set>

#include <fmt/format.h>
#include <sys/resource.h>
#include <unistd.h>

namespace murbo::window {
namespace {

namespace fs = std::filesystem;

double playedSeconds() {
    const char* text = std::getenv("MURBO_BENCH_SECONDS");
    return text ? std::max(std::atof(text), 2.0) : 20;
}

/// The figures of a step that is done often.
class StepFigures {
public:
    void add(double figure) { all.push_back(figure); }
    double median() const { return at(0.5); }
    double at(double share) const {
        auto sorted = all;
        std::ranges::sort(sorted);
        const auto place = static_cast<std::size_t>(share * static_cast<double>(sorted.size()));
        return sorted.empty() ? 0 : sorted[std::min(place, sorted.size() - 1)];
    }
    double worst() const { return at(1); }

private:
    std::vector<double> all;
};

template <class... Arguments>
void say(const char* name, fmt::format_string<Arguments...> words, Arguments&&... arguments) {
    fmt::print("{:<12}{}\n", name, fmt::format(words, std::forward<Arguments>(arguments)...));
    std::fflush(stdout);
}

/// The application as the program makes it, with settings and caches of its own.
class BenchApplication {
public:
    BenchApplication() : application(count, words) { Desktop::setUp(); }

private:
    char name[13] = "bench_window";
    char* words[2] = {name, nullptr};
    int count = 1;
    QGuiApplication application;
};

fs::path folder() {
    static const fs::path made = [] {
        const char* given = std::getenv("MURBO_BENCH_FOLDER");
        return given ? fs::path(given)
                     : fs::temp_directory_path() / fmt::format("murbo-window-{}", ::getpid());
    }();
    return made;
}

void useOwnFolders() {
    fs::create_directories(folder() / "home");
    fs::create_directories(folder() / "run");
    fs::permissions(folder() / "run", fs::perms::owner_all);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qputenv("MURBO_BENCH_FOLDER", folder().c_str());
    qputenv("XDG_CONFIG_HOME", (folder() / "home/config").c_str());
    qputenv("XDG_CACHE_HOME", (folder() / "home/cache").c_str());
    qputenv("XDG_RUNTIME_DIR", (folder() / "run").c_str());
    qputenv("HOME", (folder() / "home").c_str());
}

fs::path package(const char* name, const std::function<Project()>& make) {
    const auto path = folder() / (std::string(name) + ".mbproj");
    if (!fs::exists(path)) ProjectPackage::write(make(), path, nullptr);
    return path;
}

fs::path longPackage() {
    return package("long", longProject);
}

// ---------------------------------------------------------------------- opening --

/// What a started program says of its first frame: the clock, and the processor time of all its threads.
void sayWhenPainted(QQuickWindow& shown) {
    QObject::connect(&shown, &QQuickWindow::frameSwapped, [] {
        fmt::print("{} {}\n", clockNow(), processor(RUSAGE_SELF));
        std::fflush(stdout);
        _exit(0);
    });
    QTimer::singleShot(PaintedWindow::patience, [] { _exit(1); });
    QGuiApplication::exec();
}

void openOnly(const fs::path& path) {
    const BenchApplication application;
    Desktop desktop({});
    auto* opened = desktop.open(path);
    if (opened) sayWhenPainted(opened->window());
    _exit(1);
}

void blankOnly() {
    const BenchApplication application;
    QQuickWindow shown;
    shown.resize(1280, 800);
    shown.show();
    sayWhenPainted(shown);
}

/// Starts this program anew: milliseconds until its window was painted, on the clock and of processor time.
PaintTime started(const std::string& words) {
    const double start = clockNow();
    FILE* said = ::popen(("exec /proc/" + std::to_string(::getpid()) + "/exe " + words).c_str(), "r");
    double then = 0;
    double used = 0;
    const bool whole = said && std::fscanf(said, "%lf %lf", &then, &used) == 2;
    if (said) ::pclose(said);
    if (!whole) throw std::runtime_error("no window came: " + words);
    return {then - start, 0, used};
}

void opening() {
    const auto path = longPackage();
    StepFigures blank;
    StepFigures blankClock;
    StepFigures own;
    StepFigures clock;
    const auto first = started("--open-only '" + path.string() + "'");
    for (int at = 0; at < 7; ++at) {
        const auto one = started("--open-only '" + path.string() + "'");
        own.add(one.all);
        clock.add(one.clock);
        const auto none = started("--blank-only");
        blank.add(none.all);
        blankClock.add(none.clock);
    }
    say("open",
        "from start to the first painted frame of the ten-hour project: {:.0f} ms, {:.0f} of processor time "
        "(the first time {:.0f}, {:.0f}); an empty window {:.0f}, {:.0f}; {:.1f} times (aim: 500 ms)",
        clock.median(), own.median(), first.clock, first.all, blankClock.median(), blank.median(),
        own.median() / blank.median());
}

// ---------------------------------------------------------------------- moving --

/// A picture of the timeline's size that is another in every frame.
class PlainPicture : public QQuickPaintedItem {
public:
    using QQuickPaintedItem::QQuickPaintedItem;
    void paint(QPainter* painter) override {
        painter->fillRect(boundingRect().toRect(), QColor(turn++ % 255, 0, 0));
    }
    int turn = 0;
};

double plainFrame() {
    QQuickWindow shown;
    shown.resize(1920, 1080);
    PlainPicture picture(shown.contentItem());
    picture.setSize({1440, 372});
    picture.setFillColor(Qt::black);
    shown.show();
    PaintedWindow watched(shown);
    watched.rest(200);
    StepFigures own;
    for (int at = 0; at < 60; ++at) own.add(watched.painted([&] { picture.update(); }).own);
    return own.median();
}

template <class Step>
void frames(const char* what, OpenWindow& shown, double plain, const Step& step) {
    StepFigures own;
    StepFigures all;
    for (int at = 0; at < 60; ++at) {
        const auto took = shown.painted([&] { step(at); });
        own.add(took.own);
        all.add(took.all);
    }
    say("frame",
        "{}: {:.2f} ms of the window's thread, 95 of 100 under {:.2f}, worst {:.2f}; all threads {:.2f}; "
        "{:.1f} "
        "times a plain picture (aim: 10 ms)",
        what, own.median(), own.at(0.95), own.worst(), all.median(), own.median() / plain);
}

void moving() {
    const BenchApplication application;
    const double plain = plainFrame();
    OpenWindow shown(longPackage());
    shown.rest(1000);
    auto& timeline = shown.item<TimelineView>();
    say("frame", "{} blocks over {:.0f} s, {:.0f} points wide", timeline.blockCount(),
        timeline.shown().length, timeline.width());
    const auto zoomed = [&](double scale) {
        timeline.zoomRound(scale / timeline.shownSpan().scale, 0);
        timeline.setScroll(100);
        shown.rest(700);
    };
    frames("zoom, all in view", shown, plain,
           [&](int at) { timeline.zoomRound(at % 20 < 10 ? 1.05 : 1 / 1.05, 600); });
    for (const double scale : {2.0, 12.0, 60.0}) {
        zoomed(scale);
        frames(fmt::format("scroll, {:.0f} points a second", scale).c_str(), shown, plain,
               [&](int) { timeline.setScroll(timeline.scroll() + 17 / scale); });
    }
    zoomed(12);
    frames("zoom, near", shown, plain,
           [&](int at) { timeline.zoomRound(at % 20 < 10 ? 0.93 : 1 / 0.93, 600); });
}

// ---------------------------------------------------------------------- keys --

/// What the session alone takes for the same cuts.
double splitsOfTheSession() {
    Editor editor(longProject(), {}, std::nullopt, [](const Project&) {});
    editor.openOnTimeline(editor.project().videos[0].id);
    StepFigures own;
    for (int at = 0; at < 20; ++at) {
        while (editor.isBusy()) QGuiApplication::processEvents(QEventLoop::WaitForMoreEvents);
        editor.playback.seek(30 + at * 3.7);
        const double before = processor(RUSAGE_THREAD);
        CutCommands::splitAtPlayhead(editor);
        own.add(processor(RUSAGE_THREAD) - before);
    }
    return own.median();
}

void keys() {
    const BenchApplication application;
    const double session = splitsOfTheSession();
    OpenWindow shown(longPackage());
    shown.rest(1000);
    StepFigures clock;
    StepFigures own;
    for (int at = 0; at < 20; ++at) {
        shown.editor().playback.seek(30 + at * 3.7);
        shown.rest(150);
        const auto took =
            shown.painted([&] { QTest::keyClick(&shown.window(), Qt::Key_B, Qt::ControlModifier); });
        clock.add(took.clock);
        own.add(took.own);
    }
    const auto cuts = shown.editor().video()->cuts.size();
    say("key",
        "to commit and repaint, a split among {} cuts: {:.1f} ms of the window's thread, worst {:.1f}; on "
        "the "
        "clock {:.1f}, worst {:.1f}; {:.1f} times the session's own {:.1f} (aim: 50 ms)",
        cuts, own.median(), own.worst(), clock.median(), clock.worst(), own.median() / session, session);
}

// ---------------------------------------------------------------------- rest --

double resting(int seconds) {
    QEventLoop loop;
    QTimer::singleShot(seconds * 1000, &loop, &QEventLoop::quit);
    const double start = processor(RUSAGE_SELF);
    loop.exec();
    return processor(RUSAGE_SELF) - start;
}

void rest() {
    const BenchApplication application;
    const int seconds = static_cast<int>(playedSeconds());
    const double empty = resting(seconds);
    OpenWindow shown(longPackage());
    shown.editor().holdClip(shown.editor().project().clips[0].id);
    shown.rest(3000);
    int painted = 0;
    QObject::connect(&shown.window(), &QQuickWindow::frameSwapped, [&] { ++painted; });
    const double used = resting(seconds);
    say("rest",
        "over {} s: {:.1f} ms of processor time, {:.3f} % of a core (aim: 0.5 %), {} frames painted; without "
        "a "
        "window {:.1f} ms",
        seconds, used, used / (seconds * 10.0), painted, empty);
}

// ---------------------------------------------------------------------- playing --

/// What the player alone uses, drawing as large for nobody.
double playingAlone(const Project& project, QSize size, double seconds) {
    players::Watch nobody;
    Player player(PlayerClock::computer, [] {
        return std::make_unique<players::ClockedOutput>([](std::span<const float>, double) {});
    });
    const auto watch = std::make_shared<players::Watch>();
    player.setSink(watch, size.width(), size.height());
    player.load(PlayerItem::video(project.videos[0], project, {}, "", std::nullopt), 0);
    watch->wait([](const auto& frame) { return frame.exact; });
    const double before = processor(RUSAGE_SELF);
    player.run(1);
    ::usleep(static_cast<useconds_t>(seconds * 1e6));
    return (processor(RUSAGE_SELF) - before) / seconds / 10;
}

void playing() {
    const BenchApplication application;
    OpenWindow shown(package("fast", fastProject));
    shown.rest(1500);
    auto& playback = shown.editor().playback;
    FrameView* view = nullptr;
    for (auto* one : shown.window().findChildren<FrameView*>())
        if (one->player() == &playback) view = one;
    if (!view) throw std::runtime_error("no viewer shows the video");
    int painted = 0;
    qint64 last = view->shown();
    int fresh = 0;
    QObject::connect(&shown.window(), &QQuickWindow::frameSwapped, [&] {
        ++painted;
        if (std::exchange(last, view->shown()) != view->shown()) ++fresh;
    });
    const auto before = playback.counts();
    const double seconds = playedSeconds();
    const double own = processor(RUSAGE_THREAD);
    const double all = processor(RUSAGE_SELF);
    playback.playPause();
    QEventLoop loop;
    QTimer::singleShot(static_cast<int>(seconds * 1000), &loop, &QEventLoop::quit);
    loop.exec();
    const double usedOwn = (processor(RUSAGE_THREAD) - own) / seconds / 10;
    const double usedAll = (processor(RUSAGE_SELF) - all) / seconds / 10;
    const auto counts = playback.counts();
    const auto came = static_cast<double>(counts.shown - before.shown);
    const auto dropped = static_cast<double>(counts.dropped - before.dropped);
    playback.pause();
    const auto size = view->picture().size().toSize();
    const double alone = playingAlone(shown.editor().project(), size, std::min(seconds, 10.0));
    say("play",
        "at {:.0f} frames a second in {} x {}: {:.0f} shown, {:.0f} dropped ({:.2f} %, aim: 1 %), {} of them "
        "painted; {:.0f} % of a core in the window's thread, {:.0f} % in all, {:.1f} times the player alone",
        playback.frameRate(), size.width(), size.height(), came, dropped, 100 * dropped / (came + dropped),
        fresh, usedOwn, usedAll, usedAll / alone);
}

// ---------------------------------------------------------------------- skimming --

void skimming() {
    const BenchApplication application;
    auto reader = FrameReader::open(players::longRecording());
    StepFigures decoding;
    OpenWindow shown(package("recording", recordingProject));
    shown.editor().holdSource(shown.editor().project().sources[0].id);
    shown.rest(1500);
    auto& strip = shown.item<WaveStrip>();
    FrameView* view = nullptr;
    for (auto* one : shown.window().findChildren<FrameView*>())
        if (one->player() == &shown.editor().source) view = one;
    if (!view) throw std::runtime_error("no viewer shows the recording");
    const auto place = [&](double x) { return strip.mapToScene({x, strip.height() / 2}).toPoint(); };
    StepFigures clock;
    int late = 0;
    for (int at = 0; at < 60; ++at) {
        const double x = std::fmod(at * 137.3 + 20, strip.width() - 10);
        const auto seen = view->shown();
        const auto took = PaintedWindow(shown.window())
                              .painted([&] { QTest::mouseMove(&shown.window(), place(x)); },
                                       [&] { return view->shown() > seen; });
        clock.add(took.clock);
        late += took.clock > 100;
        const double before = processor(RUSAGE_THREAD);
        reader.keyframe(std::fmod(at * 4391.37 + 17.123, 10790));
        decoding.add(processor(RUSAGE_THREAD) - before);
        QTest::qWait(at % 3 ? 0 : 250);
    }
    say("skim",
        "three hours, until a picture is painted: {:.0f} ms, 95 of 100 under {:.0f}, worst {:.0f} (aim: "
        "100), {} "
        "of 60 late; {:.2f} times a decoded keyframe of {:.1f} ms",
        clock.median(), clock.at(0.95), clock.worst(), late, clock.median() / decoding.median(),
        decoding.median());
}

void memory() {
    const BenchApplication application;
    const double before = players::peakMegabytes();
    OpenWindow shown(package("recording", recordingProject));
    shown.editor().holdSource(shown.editor().project().sources[0].id);
    shown.rest(1500);
    for (int at = 0; at < 40; ++at) {
        shown.editor().source.seek(at * shown.editor().source.spanEnd() / 40);
        shown.rest(150);
    }
    shown.editor().source.playPause();
    QTest::qWait(5000);
    shown.editor().source.pause();
    say("memory",
        "with a recording of {:.1f} h looked through and played: {:.0f} MB at its peak (aim: 700), {:.0f} "
        "before there was a window",
        shown.editor().source.spanEnd() / 3600, players::peakMegabytes(), before);
}

void run(const std::set<std::string>& names) {
    longPackage();
    const std::pair<const char*, std::function<void()>> all[] = {
        {"open", opening}, {"frame", moving},  {"key", keys},     {"rest", rest},
        {"play", playing}, {"skim", skimming}, {"memory", memory}};
    for (const auto& [name, work] : all)
        if (names.empty() || names.contains(name)) job::measured(work);
    fs::remove_all(folder());
}

}
}

int main(int count, char** words) {
    using namespace murbo;
    try {
        window::useOwnFolders();
        const std::vector<std::string> given(words + 1, words + count);
        if (given.size() == 2 && given[0] == "--open-only") window::openOnly(given[1]);
        if (given.size() == 1 && given[0] == "--blank-only") window::blankOnly();
        window::run({given.begin(), given.end()});
    } catch (const std::exception& error) {
        fmt::print(stderr, "{}\n", error.what());
        return 1;
    }
}
