// Random keys and mouse on the whole program. MURBO_SOAK_SECONDS makes it longer (3), MURBO_SOAK_SEED another
// (1), MURBO_PROGRAM takes a program that was built with sanitizers.
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

class Soak : public Scenario {
protected:
    int below(int end) { return static_cast<int>(chance() % static_cast<unsigned>(end)); }
    ScreenPoint anywhere() { return {5.0 + below(1270), 5.0 + below(790)}; }
    /// Most of the time on the timeline, where a press means most.
    ScreenPoint somewhere() {
        return below(3) ? ScreenPoint{90.0 + below(870), 500.0 + below(290)} : anywhere();
    }

    void anyKey() {
        static const std::vector<std::string> keys{"Space",     "J",        "K",          "L",
                                                   "I",         "O",        "X",          "E",
                                                   "W",         "A",        "T",          "B",
                                                   "H",         "S",        "N",          "Delete",
                                                   "F",         "U",        "1",          "2",
                                                   "3",         "Z",        "M",          "P",
                                                   "Left",      "Right",    "Shift+Left", "Shift+Right",
                                                   "Up",        "Down",     "Home",       "End",
                                                   "Ctrl+B",    "Alt+[",    "Alt+]",      "Ctrl+D",
                                                   "Ctrl+Z",    "Ctrl+Z",   "Ctrl+Z",     "Ctrl+Shift+Z",
                                                   "Ctrl+=",    "Ctrl+-",   "Shift+Z",    "Ctrl+Right",
                                                   "Ctrl+Left", "Ctrl+Up",  "Ctrl+Down",  "Ctrl+Shift+Right",
                                                   "F6",        "Shift+F6", "Tab",        "Escape",
                                                   "Return",    "Ctrl+1",   "Ctrl+2",     "Ctrl+3",
                                                   "Ctrl+4",    "Ctrl+5"};
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
    /// Some of what is done closes the window; then the next begins.
    void keepOpen() {
        if (!program().process().runs() && program().process().status() == 0)
            start({"--open", package.string()});
    }
    void anything() {
        const int kind = below(20);
        if (kind < 10) return anyKey();
        if (kind < 14) return click(somewhere());
        if (kind < 17) return drag(somewhere(), somewhere());
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
    ProjectPackage::write(scenario::cutVideo(), package, nullptr);
    start({"--open", package.string()});
    const auto end =
        std::chrono::steady_clock::now() + std::chrono::duration<double>(number("MURBO_SOAK_SECONDS", 3));
    int deeds = 0;
    while (std::chrono::steady_clock::now() < end && program().process().runs()) {
        anything();
        if (++deeds % 10 == 0) items(); // waits until it has taken them all
        keepOpen();
    }
    std::printf("%d deeds\n", deeds);
    ASSERT_TRUE(program().process().runs()) << program().log();
    key("Escape", 3);
    until(
        "it still has its window", [&] { return screen().hasWindow(); }, 60);
    EXPECT_FALSE(onDisk().sources.empty());
    program().process().end();
    EXPECT_EQ(program().log().find("Sanitizer"), std::string::npos) << program().log();
    EXPECT_EQ(program().log().find("runtime error"), std::string::npos) << program().log();
    start({"--open", package.string()});
}
