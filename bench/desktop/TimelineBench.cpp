// The timeline of a video of two thousand cuts: what a frame costs while it is scrolled and zoomed.
#include "app/desktop/Desktop.h"
#include "app/desktop/drawn/FootagePictures.h"
#include "app/desktop/timeline/TimelineTheme.h"
#include "app/desktop/timeline/TimelineView.h"
#include "bench/model/BigProject.h"

#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <algorithm>
#include <ctime>

#include <fmt/format.h>

namespace murbo {
namespace {

constexpr int width = 1920;
constexpr int height = 372;
constexpr int frames = 300;
constexpr std::size_t cuts = 2000;

/// Of the whole program, in milliseconds.
double processorTime() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

/// The big project with one video of as many cuts as asked for, of two seconds each.
Project longVideo() {
    auto project = bigProject();
    Video video{.number = 999, .title = "Long"};
    const auto& sources = project.sources;
    for (std::size_t at = 0; at < cuts; ++at) {
        const double start = static_cast<double>(at / sources.size()) * 12;
        video.cuts.edit().push_back(
            {.source = sources[at % sources.size()].id, .start = start, .end = start + 2});
    }
    project.videos.edit().insert(project.videos.edit().begin(), video);
    return project;
}

void frame(QQuickWindow& window) {
    bool shown = false;
    const auto link =
        QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [&shown] { shown = true; });
    window.update();
    while (!shown) QGuiApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QObject::disconnect(link);
}

template <class Step>
void measure(const char* what, QQuickWindow& window, const Step& step) {
    std::vector<double> each;
    for (int at = 0; at < frames; ++at) {
        const double before = processorTime();
        step(at);
        frame(window);
        each.push_back(processorTime() - before);
    }
    std::ranges::sort(each);
    fmt::print("{:28} median {:6.2f} ms CPU, 95 of 100 under {:6.2f} ms\n", what, each[each.size() / 2],
               each[each.size() * 95 / 100]);
}

void run() {
    Desktop::setUp();
    Desktop::registerTypes();
    Editor editor(longVideo(), {}, std::nullopt, [](const Project&) {});
    FootagePictures pictures([](const UUID&) { return nullptr; }, [](const UUID&) { return nullptr; });
    QQmlEngine engine;
    QQmlComponent theme(&engine);
    theme.setData(
        "import QtQuick\nimport \"qrc:/murbo/qml\"\nQtObject { property var colours: Theme.timeline }",
        QUrl("qrc:/murbo/qml/TimelineBench.qml"));
    const std::unique_ptr<QObject> made(theme.create());
    QQuickWindow window;
    window.resize(width, height);
    TimelineView view(window.contentItem());
    view.setSize({width, height});
    view.setFootage(&pictures);
    if (made) view.setColours(made->property("colours").toMap());
    view.setEditor(&editor);
    window.show();
    frame(window);
    fmt::print("{} blocks, {} points wide\n", view.blockCount(), width);
    for (const double scale : {4.0, 20.0, 80.0}) {
        view.zoomRound(scale / view.shownSpan().scale, 0);
        view.setScroll(100);
        frame(window);
        measure(fmt::format("scroll at {} points a second", scale).c_str(), window,
                [&](int) { view.setScroll(view.scroll() + 12 / scale); });
    }
    measure("zoom round the pointer", window,
            [&](int at) { view.zoomRound((at / 50) % 2 ? 1.05 : 1 / 1.05, 900); });
}

}
}

int main(int count, char** words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(count, words);
    murbo::run();
}
