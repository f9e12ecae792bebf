#include "app/desktop/drawn/DrawList.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace murbo {

/// Four sides within the rectangle.
void DrawList::frame(const QRectF& rect, double thick, const QColor& colour) {
    fill({rect.left(), rect.top(), rect.width(), thick}, colour);
    fill({rect.left(), rect.bottom() - thick, rect.width(), thick}, colour);
    fill({rect.left(), rect.top() + thick, thick, rect.height() - 2 * thick}, colour);
    fill({rect.right() - thick, rect.top() + thick, thick, rect.height() - 2 * thick}, colour);
}

namespace {

/// One side of a rectangle. What holds no whole point the software renderer forgets as soon as something
/// beneath it is drawn anew.
std::pair<double, double> sideOnPixels(double from, double to, double ratio) {
    const auto snapped = [ratio](double at) { return std::round(at * ratio) / ratio; };
    if (ratio != 1 && to - from < 2 - 1e-6) {
        const double point = std::round(from);
        return {point, point + std::max(std::round(to - from), 1.0)};
    }
    const double start = snapped(from);
    return {start, std::max(snapped(to), start + 1 / ratio)};
}

}

QRectF DrawList::onPixels(const QRectF& rect, double ratio) {
    const auto [left, right] = sideOnPixels(rect.left(), rect.right(), ratio);
    const auto [top, bottom] = sideOnPixels(rect.top(), rect.bottom(), ratio);
    return {left, top, right - left, bottom - top};
}

void DrawList::moveBy(double x, double y) {
    for (auto& item : items) std::visit([&](auto& one) { one.rect.translate(x, y); }, item);
}

}
