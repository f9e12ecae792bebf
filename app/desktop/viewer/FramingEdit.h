#pragma once

#include "app/desktop/viewer/BoxHandles.h"
#include "core/model/Framing.h"

#include <vector>

namespace murbo {

/// What a hand or the arrow keys do to where content and face lie in a picture. Pure; all in fractions of
/// the picture, but for the split, which is one of the video's height.
namespace FramingEdit {

enum class FramingPart { content, face, eyes, split };

/// What a press takes hold of.
struct FramingGrip {
    FramingPart part = FramingPart::content;
    BoxHandles::BoxHandle handle = BoxHandles::BoxHandle::none; ///< none is nothing

    bool operator==(const FramingGrip&) const = default;
};

inline constexpr double smallest = 0.02; ///< a side of a box
inline constexpr double minPanel = 0.1;  ///< of the video's height

QRectF rect(const Box& box);
/// Where the eyes are, or where they are taken to be.
QPointF eyes(const Framing& framing);

/// What lies at a point of the picture: the eyes first, then the face, then the content. A box is taken by
/// its edges before another one's body.
FramingGrip at(const Framing& framing, const QPointF& point, const QSizeF& reach);

/// The framing after what is held was pulled by so much from where it was.
Framing pulled(const Framing& framing, const FramingGrip& hold, const QPointF& by);

/// The parts of the picture that neither box shows, as rectangles that do not overlap.
std::vector<QRectF> outside(const Framing& framing);

}

}
