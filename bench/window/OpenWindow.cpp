#include "bench/window/OpenWindow.h"

#include "bench/playback/Yardstick.h"
#include "platform/base/Problem.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <ctime>

#include <sys/resource.h>

namespace murbo::window {

double processor(int whose) {
    timespec used{};
    clock_gettime(whose == RUSAGE_THREAD ? CLOCK_THREAD_CPUTIME_ID : CLOCK_PROCESS_CPUTIME_ID, &used);
    return static_cast<double>(used.tv_sec) * 1e3 + static_cast<double>(used.tv_nsec) / 1e6;
}

double clockNow() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

void PaintedWindow::rest(int milliseconds, const std::function<bool()>& busy) {
    QEventLoop loop;
    QTimer quiet;
    quiet.setSingleShot(true);
    quiet.setInterval(milliseconds);
    QObject::connect(&shown, &QQuickWindow::frameSwapped, &quiet, [&] { quiet.start(); });
    QObject::connect(&quiet, &QTimer::timeout, &loop, [&] { busy&& busy() ? quiet.start() : loop.quit(); });
    QTimer::singleShot(patience, &loop, &QEventLoop::quit);
    quiet.start();
    loop.exec();
}

PaintTime PaintedWindow::painted(const std::function<void()>& deed) {
    return painted(deed, [] { return true; });
}

PaintTime PaintedWindow::painted(const std::function<void()>& deed, const std::function<bool()>& there) {
    QEventLoop loop;
    bool done = false;
    const PaintTime before{clockNow(), processor(RUSAGE_THREAD), processor(RUSAGE_SELF)};
    const auto link = QObject::connect(&shown, &QQuickWindow::frameSwapped, &loop, [&] {
        done = done || there();
        if (done) loop.quit();
    });
    QTimer late;
    late.setSingleShot(true);
    QObject::connect(&late, &QTimer::timeout, &loop, &QEventLoop::quit);
    late.start(patience);
    deed();
    if (!done) loop.exec();
    QObject::disconnect(link);
    if (!done) throw Problem("What was waited for was never painted.");
    return {clockNow() - before.clock, processor(RUSAGE_THREAD) - before.own,
            processor(RUSAGE_SELF) - before.all};
}

OpenWindow::OpenWindow(const std::filesystem::path& package)
    : desktop(std::make_unique<Desktop>(
          [] { return std::make_unique<players::ClockedOutput>([](std::span<const float>, double) {}); })) {
    opened = desktop->open(package);
    if (!opened) throw Problem(desktop->problem().toStdString());
    window().resize(1920, 1080);
}

void OpenWindow::rest(int milliseconds) {
    PaintedWindow(window()).rest(milliseconds, [this] { return editor().isBusy(); });
}

}
