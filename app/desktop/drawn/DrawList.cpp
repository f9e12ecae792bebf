#include "app/desktop/drawn/DrawList.h"

namespace murbo {

/// Four sides within the rectangle.
void DrawList::frame(const QRectF& rect, double thick, const QColor& colour) {
    fill({rect.left(), rect.top(), rect.width(), thick}, colour);
    fill({rect.left(), rect.bottom() - thick, rect.width(), thick}, colour);
    fill({rect.left(), rect.top() + thick, thick, rect.height() - 2 * thick}, colour);
    fill({rect.right() - thick, rect.top() + thick, thick, rect.height() - 2 * thick}, colour);
}

void DrawList::moveBy(double x, double y) {
    for (auto& item : items) std::visit([&](auto& one) { one.rect.translate(x, y); }, item);
}

}
