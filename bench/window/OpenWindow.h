#pragma once

#include "app/desktop/Desktop.h"
#include "app/desktop/ProjectWindow.h"

#include <QQuickWindow>
#include <filesystem>
#include <functional>
#include <memory>

namespace murbo::window {

/// What something took until it was painted, in milliseconds.
struct PaintTime {
    double clock = 0;
    double own = 0; ///< processor time of the window's thread
    double all = 0; ///< of all threads
};

/// A window whose frames are waited for, with nothing else going on meanwhile.
class PaintedWindow {
public:
    static constexpr int patience = 30000; ///< ms

    explicit PaintedWindow(QQuickWindow& watched) : shown(watched) {}

    /// Waits until nothing has been painted for so long, and `busy` says no.
    void rest(int milliseconds, const std::function<bool()>& busy = {});
    /// Does something and waits until what comes of it is painted.
    PaintTime painted(const std::function<void()>& deed);
    /// The same until `there` says yes after a frame.
    PaintTime painted(const std::function<void()>& deed, const std::function<bool()>& there);

private:
    QQuickWindow& shown;
};

/// An open project in a window of 1920 x 1080, with a sound device that only a clock drives.
class OpenWindow {
public:
    explicit OpenWindow(const std::filesystem::path& package);

    QQuickWindow& window() { return opened->window(); }
    Editor& editor() { return opened->project().editor(); }
    template <class Item>
    Item& item() {
        return *window().findChild<Item*>();
    }
    void rest(int milliseconds = 300);
    PaintTime painted(const std::function<void()>& deed) { return PaintedWindow(window()).painted(deed); }

private:
    std::unique_ptr<Desktop> desktop;
    ProjectWindow* opened = nullptr;
};

/// Milliseconds of processor time: RUSAGE_THREAD or RUSAGE_SELF.
double processor(int whose);
/// Milliseconds on the clock, the same for all processes.
double clockNow();

}
