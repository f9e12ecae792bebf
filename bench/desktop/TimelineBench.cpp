// The timeline of a video of two thousand cuts by itself: what a frame costs while it is scrolled and zoomed,
// beside filling a picture of its size.
#include "app/desktop/Desktop.h"
#include "app/desktop/drawn/FootagePictures.h"
#include "app/desktop/timeline/TimelineView.h"
#include "bench/model/BigProject.h"
#include "core/intake/samples/Loudness.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QPainter>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickPaintedItem>
#include <QQuickWindow>
#include <algorithm>
#include <ctime>

#include <fmt/format.h>

namespace murbo::timeline {
namespace {

constexpr int width = 1920;
constexpr int height = 372;
constexpr int frames = 100;
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

void frame(QQuickWindow& window, QQuickItem& view) {
    QEventLoop loop;
    QObject::connect(&window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
    view.update();
    window.update();
    loop.exec();
}

/// The median of what a frame takes; the bench says what 95 of 100 stay under.
template <class Step>
double measure(const char* what, QQuickWindow& window, QQuickItem& view, double plain, const Step& step) {
    std::vector<double> each;
    for (int at = 0; at < frames; ++at) {
        const double before = processorTime();
        step(at);
        frame(window, view);
        each.push_back(processorTime() - before);
    }
    std::ranges::sort(each);
    const double median = each[each.size() / 2];
    fmt::print("{:32} {:6.2f} ms CPU, 95 of 100 under {:6.2f} ms", what, median,
               each[each.size() * 95 / 100]);
    fmt::print("{}\n", plain > 0 ? fmt::format(", {:.1f} times the filled picture", median / plain) : "");
    return median;
}

class Filled : public QQuickPaintedItem {
public:
    using QQuickPaintedItem::QQuickPaintedItem;
    void paint(QPainter* painter) override { painter->fillRect(boundingRect(), Qt::darkGray); }
};

double filled() {
    QQuickWindow window;
    window.resize(width, height);
    Filled item(window.contentItem());
    item.setSize({width, height});
    window.show();
    frame(window, item);
    return measure("a filled picture", window, item, 0, [](int) {});
}

void run() {
    Desktop::setUp();
    Desktop::registerTypes();
    const double plain = filled();
    Editor editor(longVideo(), {}, std::nullopt, [](const Project&) {});
    Loudness loudness;
    for (int at = 0; at < 36000; ++at) loudness.levels.push_back(static_cast<std::uint8_t>(at * 7919 % 255));
    FootagePictures pictures([](const UUID&) { return nullptr; }, [&](const UUID&) { return &loudness; });
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
    frame(window, view);
    fmt::print("{} blocks, {} points wide\n", view.blockCount(), width);
    measure("all in view", window, view, plain, [](int) {});
    for (const double scale : {4.0, 20.0, 80.0}) {
        view.zoomRound(scale / view.shownSpan().scale, 0);
        view.setScroll(100);
        frame(window, view);
        measure(fmt::format("scroll at {} points a second", scale).c_str(), window, view, plain,
                [&](int) { view.setScroll(view.scroll() + 12 / scale); });
    }
    measure("zoom round the pointer", window, view, plain,
            [&](int at) { view.zoomRound((at / 50) % 2 ? 1.05 : 1 / 1.05, 900); });
}

}
}

int main(int count, char** words) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    const QGuiApplication application(count, words);
    murbo::timeline::run();
}
