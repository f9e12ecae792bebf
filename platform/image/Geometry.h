#pragma once

namespace murbo {

/// All geometry of pictures: pixels, origin at the top left, y downward.
struct Point {
    double x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

struct Size {
    double width = 0;
    double height = 0;
    bool operator==(const Size&) const = default;
};

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

/// x' = a·x + c·y + tx, y' = b·x + d·y + ty. A chain reads in the order in which it acts:
/// `Transform().translated(…).scaled(…).rotated(…)` translates first.
struct Transform {
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 1;
    double tx = 0;
    double ty = 0;

    Transform translated(double x, double y) const;
    Transform scaled(double x, double y) const;
    /// Clockwise on the screen, degrees.
    Transform rotated(double degrees) const;
    /// This one, then `next`.
    Transform then(const Transform& next) const;
    /// Undoes this one; an identity where it cannot be undone (see `invertible`).
    Transform inverse() const;
    bool invertible() const;

    Point apply(Point point) const;
    /// The smallest upright rectangle round the transformed one.
    Rect apply(const Rect& rect) const;

    bool operator==(const Transform&) const = default;
};

}
