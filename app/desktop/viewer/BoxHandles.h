#pragma once

#include <QPointF>
#include <QRectF>

namespace murbo {

/// The eight handles of a box and what pulling them does. Pure; any unit.
namespace BoxHandles {

enum class BoxHandle { none, body, left, right, top, bottom, topLeft, topRight, bottomLeft, bottomRight };

inline constexpr BoxHandle allEdges[] = {BoxHandle::topLeft,     BoxHandle::topRight, BoxHandle::bottomLeft,
                                         BoxHandle::bottomRight, BoxHandle::left,     BoxHandle::right,
                                         BoxHandle::top,         BoxHandle::bottom};

/// Where a handle stands on a box; its middle for the body.
QPointF place(const QRectF& box, BoxHandle handle);

/// What a point takes hold of: the corners go before the edges, these before the body. `reach` is how far
/// from the line an edge is still met; in a small box it leaves a third of each side for the body.
BoxHandle at(const QRectF& box, const QPointF& point, const QSizeF& reach);

/// The box after its handle was pulled by so much, kept within `bounds` and at least `least` large. Moved
/// by its body it keeps its size.
QRectF pulled(const QRectF& box, BoxHandle handle, const QPointF& by, const QRectF& bounds,
              const QSizeF& least);

bool isLeft(BoxHandle handle);
bool isRight(BoxHandle handle);
bool isTop(BoxHandle handle);
bool isBottom(BoxHandle handle);

/// The shape of the pointer over it.
Qt::CursorShape cursor(BoxHandle handle);

}

}
