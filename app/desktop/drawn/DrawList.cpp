#include "app/desktop/drawn/DrawList.h"

#include <algorithm>
#include <cmath>

namespace murbo {

/// Four sides within the rectangle.
void DrawList::frame(const QRectF& rect, double thick, const QColor& colour) {
    fill({rect.left(), rect.top(), rect.width(), thick}, colour);
    fill({rect.left(), rect.bottom() - thick, rect.width(), thick}, colour);
    fill({rect.left(), rect.top() + thick, thick, rect.height() - 2 * thick}, colour);
    fill({rect.right() - thick, rect.top() + thick, thick, rect.height() - 2 * thick}, colour);
}

QRectF DrawList::onPixels(const QRectF& rect, double ratio) {
    const auto snapped = [ratio](double at) { return std::round(at * ratio) / ratio; };
    const double left = snapped(rect.left());
    const double top = snapped(rect.top());
    const double right = std::max(snapped(rect.right()), left + 1 / ratio);
    const double bottom = std::max(snapped(rect.bottom()), top + 1 / ratio);
    return {left, top, right - left, bottom - top};
}

void DrawList::moveBy(double x, double y) {
    for (auto& item : items) std::visit([&](auto& one) { one.rect.translate(x, y); }, item);
}

}
