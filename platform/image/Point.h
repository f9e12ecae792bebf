#pragma once

namespace murbo {

/// A place, in pixels: the origin is the top left, y points down.
struct Point {
    double x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

}
