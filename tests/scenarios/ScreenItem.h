#pragma once

#include "tests/scenarios/VirtualScreen.h"

#include <vector>

namespace murbo {

class JsonValue;

/// A thing in a window of the program under test, as a screen reader is given it.
struct ScreenItem {
    int depth = 0; ///< what comes after it and is deeper lies in it
    std::string role;
    std::string name;
    std::string description;
    std::string value;
    double x = 0; ///< pixels on the screen
    double y = 0;
    double width = 0;
    double height = 0;
    bool focusable = false;
    bool focused = false;
    bool enabled = true;
    bool checked = false;
    bool selected = false;

    ScreenPoint middle() const { return {x + width / 2, y + height / 2}; }
    /// A place in it: shares of its width and height.
    ScreenPoint at(double across, double down = 0.5) const { return {x + width * across, y + height * down}; }

    /// All of the list in an answer of the program's.
    static std::vector<ScreenItem> all(const JsonValue& list);
};

}
