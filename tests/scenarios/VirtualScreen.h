#pragma once

#include "tests/TemporaryFolder.h"

#include <memory>
#include <set>

struct _XDisplay;

namespace murbo {

class ChildProcess;

/// A point on the screen, in pixels.
struct ScreenPoint {
    double x = 0;
    double y = 0;
};

/// A screen of its own with mouse and keys, which are to programs as those of a person: Xvfb and its
/// test extension. With MURBO_ON_SCREEN in the environment it is the screen that people look at, and all goes
/// slowly.
class VirtualScreen {
public:
    /// Why there can be none here; empty where there can.
    static std::string missing();
    static bool installed(const char* program); ///< whether the shell finds it

    VirtualScreen(int width, int height);
    VirtualScreen(const VirtualScreen&) = delete;
    ~VirtualScreen();

    const std::string& name() const { return called; } ///< for $DISPLAY
    /// Whether somebody looks on.
    static bool shown();

    void move(ScreenPoint to);
    void press(int button = 1); ///< 1 left, 2 middle, 3 right, 4 wheel up, 5 wheel down
    void release(int button = 1);
    void keyDown(int code); ///< as X counts them: the kernel's codes and 8
    void keyUp(int code);
    /// Lets go of all that is held.
    void releaseAll();
    /// What its keyboard has on it: "us", "th", "fr", "ru". False where that can't be set.
    bool setLayout(const std::string& layout) const;
    /// Whether a program has a window on it.
    bool hasWindow() const;
    /// Takes the keys from every window, as a person does who turns to another program.
    void leaveWindows() const;
    /// Writes what is on it as a JPEG file.
    void picture(const std::filesystem::path& file) const;

private:
    void start(int width, int height);
    void pause() const;

    TemporaryFolder folder;
    std::unique_ptr<ChildProcess> server;
    std::string called;
    _XDisplay* connection = nullptr;
    ScreenPoint pointer;
    std::set<int> buttonsHeld;
    std::set<int> keysHeld;
};

}
