#include "platform/image/Transform.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace murbo {
namespace {

/// Sine and cosine in degrees, exact at quarter turns so that a turned picture keeps whole pixels.
std::pair<double, double> sineAndCosine(double degrees) {
    const double turn = std::remainder(degrees, 360.0);
    if (turn == 0) return {0, 1};
    if (turn == 90) return {1, 0};
    if (turn == -90) return {-1, 0};
    if (turn == 180 || turn == -180) return {0, -1};
    const double radians = turn * 3.14159265358979323846 / 180;
    return {std::sin(radians), std::cos(radians)};
}

}

Transform Transform::translated(double x, double y) const {
    return then({1, 0, 0, 1, x, y});
}

Transform Transform::scaled(double x, double y) const {
    return then({x, 0, 0, y, 0, 0});
}

Transform Transform::rotated(double degrees) const {
    const auto [sine, cosine] = sineAndCosine(degrees);
    return then({cosine, sine, -sine, cosine, 0, 0});
}

Transform Transform::then(const Transform& next) const {
    return {next.a * a + next.c * b,
            next.b * a + next.d * b,
            next.a * c + next.c * d,
            next.b * c + next.d * d,
            next.a * tx + next.c * ty + next.tx,
            next.b * tx + next.d * ty + next.ty};
}

bool Transform::invertible() const {
    const double area = a * d - b * c;
    return std::isfinite(area) && std::isfinite(tx) && std::isfinite(ty) && std::abs(area) > 1e-18;
}

bool Transform::keepsAxes() const {
    return (b == 0 && c == 0) || (a == 0 && d == 0);
}

bool Transform::isShift() const {
    const auto whole = [](double value) {
        return std::abs(value - std::round(value)) < 1e-6 && std::abs(value) < (1 << 28);
    };
    return a == 1 && b == 0 && c == 0 && d == 1 && whole(tx) && whole(ty);
}

Transform Transform::inverse() const {
    if (!invertible()) return {};
    const double area = a * d - b * c;
    return {d / area, -b / area, -c / area, a / area, (c * ty - d * tx) / area, (b * tx - a * ty) / area};
}

Point Transform::apply(Point point) const {
    return {a * point.x + c * point.y + tx, b * point.x + d * point.y + ty};
}

Rect Transform::apply(const Rect& rect) const {
    if (rect.isEverything()) return rect;
    if (rect.empty()) return {};
    const Point corners[] = {apply(Point{rect.x, rect.y}), apply(Point{rect.right(), rect.y}),
                             apply(Point{rect.x, rect.bottom()}), apply(Point{rect.right(), rect.bottom()})};
    const auto [left, right] = std::minmax({corners[0].x, corners[1].x, corners[2].x, corners[3].x});
    const auto [top, bottom] = std::minmax({corners[0].y, corners[1].y, corners[2].y, corners[3].y});
    return {left, top, right - left, bottom - top};
}

}
