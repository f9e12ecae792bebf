#pragma once

#include "platform/image/Point.h"

namespace murbo {

/// An upright rectangle: its top left, and how far it goes to the right and down.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double right() const { return x + width; }
    double bottom() const { return y + height; }
    Point middle() const { return {x + width * 0.5, y + height * 0.5}; }
    bool empty() const { return !(width > 0 && height > 0); }

    /// Without bounds: the extent of a plain colour.
    static Rect everything();
    bool isEverything() const;

    Rect intersection(const Rect& other) const;
    /// The smallest rectangle that holds both; an empty one adds nothing.
    Rect united(const Rect& other) const;
    bool contains(const Rect& other) const;

    bool operator==(const Rect&) const = default;
};

}
