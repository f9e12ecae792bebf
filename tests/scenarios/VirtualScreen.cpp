#include "tests/scenarios/VirtualScreen.h"

#include "platform/image/Jpeg.h"
#include "tests/scenarios/ChildProcess.h"

#include <chrono>
#include <stdexcept>
#include <thread>

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <unistd.h>

namespace murbo {
namespace {

constexpr auto slowly = std::chrono::milliseconds(150);

}

bool VirtualScreen::installed(const char* program) {
    return std::system((std::string("command -v ") + program + " >/dev/null 2>&1").c_str()) == 0;
}

bool VirtualScreen::shown() {
    return std::getenv("MURBO_ON_SCREEN") != nullptr;
}

std::string VirtualScreen::missing() {
    if (shown()) return std::getenv("DISPLAY") ? "" : "There is no screen here to show it on.";
    return installed("Xvfb") ? "" : "Xvfb, which gives a screen to test on, is not here.";
}

VirtualScreen::VirtualScreen(int width, int height) {
    if (shown())
        called = std::getenv("DISPLAY");
    else
        start(width, height);
    connection = XOpenDisplay(called.c_str());
    if (!connection) throw std::runtime_error("no connection to the screen " + called);
}

VirtualScreen::~VirtualScreen() {
    if (connection) XCloseDisplay(connection);
}

void VirtualScreen::start(int width, int height) {
    int ends[2];
    if (pipe(ends) != 0) throw std::runtime_error("no pipe");
    const auto size = std::to_string(width) + "x" + std::to_string(height) + "x24";
    server =
        std::make_unique<ChildProcess>(std::vector<std::string>{"Xvfb", "-displayfd", "3", "-screen", "0",
                                                                size, "-nolisten", "tcp", "-noreset"},
                                       ChildProcess::Variables{}, folder / "log", ends[1]);
    close(ends[1]);
    // It says which number it took once it can be used.
    std::string number;
    for (char one = 0; read(ends[0], &one, 1) == 1 && one != '\n';) number += one;
    close(ends[0]);
    called = ":" + number;
    if (number.empty()) throw std::runtime_error("Xvfb did not start: " + contentsOf(folder / "log"));
}

void VirtualScreen::pause() const {
    XSync(connection, False);
    if (shown()) std::this_thread::sleep_for(slowly);
}

void VirtualScreen::move(ScreenPoint to) {
    const int steps = shown() ? 20 : 1;
    for (int at = 1; at <= steps; ++at) {
        const double share = static_cast<double>(at) / steps;
        XTestFakeMotionEvent(connection, -1, static_cast<int>(pointer.x + (to.x - pointer.x) * share),
                             static_cast<int>(pointer.y + (to.y - pointer.y) * share), 0);
        XSync(connection, False);
        if (shown()) std::this_thread::sleep_for(slowly / 15);
    }
    pointer = to;
}

void VirtualScreen::press(int button) {
    buttonsHeld.insert(button);
    XTestFakeButtonEvent(connection, static_cast<unsigned>(button), True, 0);
    pause();
}

void VirtualScreen::release(int button) {
    buttonsHeld.erase(button);
    XTestFakeButtonEvent(connection, static_cast<unsigned>(button), False, 0);
    pause();
}

void VirtualScreen::keyDown(int code) {
    keysHeld.insert(code);
    XTestFakeKeyEvent(connection, static_cast<unsigned>(code), True, 0);
    pause();
}

void VirtualScreen::keyUp(int code) {
    keysHeld.erase(code);
    XTestFakeKeyEvent(connection, static_cast<unsigned>(code), False, 0);
    pause();
}

void VirtualScreen::releaseAll() {
    while (!buttonsHeld.empty()) release(*buttonsHeld.begin());
    while (!keysHeld.empty()) keyUp(*keysHeld.begin());
}

bool VirtualScreen::setLayout(const std::string& layout) const {
    if (!installed("setxkbmap")) return false;
    const auto command = "setxkbmap -display " + called + " -layout " + layout + " >/dev/null 2>&1";
    return std::system(command.c_str()) == 0;
}

bool VirtualScreen::hasWindow() const {
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    XQueryTree(connection, DefaultRootWindow(connection), &root, &parent, &children, &count);
    bool found = false;
    for (unsigned at = 0; at < count && !found; ++at) {
        XWindowAttributes facts;
        found = XGetWindowAttributes(connection, children[at], &facts) && facts.map_state == IsViewable &&
                facts.width > 100;
    }
    if (children) XFree(children);
    return found;
}

void VirtualScreen::leaveWindows() const {
    XSetInputFocus(connection, DefaultRootWindow(connection), RevertToNone, CurrentTime);
    XSync(connection, False);
}

void VirtualScreen::picture(const std::filesystem::path& file) const {
    XWindowAttributes facts;
    const auto root = DefaultRootWindow(connection);
    XGetWindowAttributes(connection, root, &facts);
    auto* image = XGetImage(connection, root, 0, 0, static_cast<unsigned>(facts.width),
                            static_cast<unsigned>(facts.height), AllPlanes, ZPixmap);
    if (!image) return;
    auto bitmap = Bitmap::toBeFilled(facts.width, facts.height);
    for (int y = 0; y < facts.height; ++y)
        for (int x = 0; x < facts.width; ++x) {
            const auto pixel = XGetPixel(image, x, y);
            auto* to = bitmap.row(y) + 4 * x;
            for (int part = 0; part < 3; ++part) to[part] = static_cast<std::uint8_t>(pixel >> (8 * part));
            to[3] = 255;
        }
    XDestroyImage(image);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << Jpeg::encode(bitmap, 0.9);
}

}
