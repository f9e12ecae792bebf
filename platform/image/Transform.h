#pragma once

#include "platform/image/Point.h"
#include "platform/image/Rect.h"

namespace murbo {

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
    /// Whether upright rectangles stay upright ones: no turn but by quarters, no shear.
    bool keepsAxes() const;
    /// Whether pixels stay pixels, moved by whole ones.
    bool isShift() const;

    Point apply(Point point) const;
    /// The smallest upright rectangle round the transformed one.
    Rect apply(const Rect& rect) const;

    bool operator==(const Transform&) const = default;
};

}
