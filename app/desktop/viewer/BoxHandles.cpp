#include "app/desktop/viewer/BoxHandles.h"

#include <algorithm>
#include <cmath>

namespace murbo::BoxHandles {
namespace {

/// Moves a stretch by so much, within its bounds.
double moved(double from, double length, double by, double low, double high) {
    return std::clamp(from + by, low, std::max(high - length, low));
}

}

bool isLeft(BoxHandle handle) {
    return handle == BoxHandle::left || handle == BoxHandle::topLeft || handle == BoxHandle::bottomLeft;
}
bool isRight(BoxHandle handle) {
    return handle == BoxHandle::right || handle == BoxHandle::topRight || handle == BoxHandle::bottomRight;
}
bool isTop(BoxHandle handle) {
    return handle == BoxHandle::top || handle == BoxHandle::topLeft || handle == BoxHandle::topRight;
}
bool isBottom(BoxHandle handle) {
    return handle == BoxHandle::bottom || handle == BoxHandle::bottomLeft || handle == BoxHandle::bottomRight;
}

QPointF place(const QRectF& box, BoxHandle handle) {
    const double x = isLeft(handle) ? box.left() : isRight(handle) ? box.right() : box.center().x();
    const double y = isTop(handle) ? box.top() : isBottom(handle) ? box.bottom() : box.center().y();
    return {x, y};
}

BoxHandle at(const QRectF& box, const QPointF& point, const QSizeF& reach) {
    const QSizeF inner(std::min(reach.width(), box.width() / 3), std::min(reach.height(), box.height() / 3));
    const auto outer = box.adjusted(-reach.width(), -reach.height(), reach.width(), reach.height());
    if (!outer.contains(point)) return BoxHandle::none;
    const bool left = point.x() < box.left() + inner.width();
    const bool right = point.x() > box.right() - inner.width();
    const bool top = point.y() < box.top() + inner.height();
    const bool bottom = point.y() > box.bottom() - inner.height();
    if (top) return left ? BoxHandle::topLeft : right ? BoxHandle::topRight : BoxHandle::top;
    if (bottom) return left ? BoxHandle::bottomLeft : right ? BoxHandle::bottomRight : BoxHandle::bottom;
    return left ? BoxHandle::left : right ? BoxHandle::right : BoxHandle::body;
}

QRectF pulled(const QRectF& box, BoxHandle handle, const QPointF& by, const QRectF& bounds,
              const QSizeF& least) {
    if (handle == BoxHandle::none) return box;
    if (handle == BoxHandle::body)
        return {QPointF(moved(box.left(), box.width(), by.x(), bounds.left(), bounds.right()),
                        moved(box.top(), box.height(), by.y(), bounds.top(), bounds.bottom())),
                box.size()};
    auto left = box.left();
    auto right = box.right();
    auto top = box.top();
    auto bottom = box.bottom();
    if (isLeft(handle)) left = std::max(std::min(left + by.x(), right - least.width()), bounds.left());
    if (isRight(handle)) right = std::min(std::max(right + by.x(), left + least.width()), bounds.right());
    if (isTop(handle)) top = std::max(std::min(top + by.y(), bottom - least.height()), bounds.top());
    if (isBottom(handle)) bottom = std::min(std::max(bottom + by.y(), top + least.height()), bounds.bottom());
    return {QPointF(left, top), QPointF(right, bottom)};
}

Qt::CursorShape cursor(BoxHandle handle) {
    switch (handle) {
        case BoxHandle::none:
            return Qt::ArrowCursor;
        case BoxHandle::body:
            return Qt::SizeAllCursor;
        case BoxHandle::left:
        case BoxHandle::right:
            return Qt::SizeHorCursor;
        case BoxHandle::top:
        case BoxHandle::bottom:
            return Qt::SizeVerCursor;
        case BoxHandle::topLeft:
        case BoxHandle::bottomRight:
            return Qt::SizeFDiagCursor;
        case BoxHandle::topRight:
        case BoxHandle::bottomLeft:
            return Qt::SizeBDiagCursor;
    }
    return Qt::ArrowCursor;
}

}
