#pragma once

#include "app/desktop/viewer/BoxHandles.h"
#include "core/model/Move.h"
#include "platform/image/Size.h"

#include <optional>

namespace murbo {

/// The box round what is placed on a video's picture, an overlay or a caption, and what a hand makes of it.
/// Pure; in pixels of the frame.
struct PictureBox {
    /// What a press takes hold of: one of the handles, or the knob that turns the box.
    enum class PictureGrip { none, body, size, turn };

    QRectF natural; ///< where the thing lies about its pivot at (0, 0), neither scaled nor turned
    QPointF pivot;  ///< where the pivot stands
    double scale = 1;
    double turn = 0; ///< degrees clockwise

    static constexpr double minScale = 0.05; ///< scale
    static constexpr double maxScale = 8;

    QPointF centre() const;
    QSizeF size() const { return natural.size() * scale; }
    /// A point of the frame as seen from the centre, turned back.
    QPointF local(const QPointF& point) const;
    /// A point as seen from the centre, on the frame.
    QPointF onFrame(const QPointF& local) const;

    /// What is at a point; `knob` is how far above its top the knob stands, `reach` how near counts.
    PictureGrip at(const QPointF& point, double reach, double knob) const;

    PictureBox movedBy(const QPointF& by) const;
    /// Its size after a pull from one point of the frame to another, about its centre; an edge pulls by the
    /// way across it alone.
    PictureBox sized(const QPointF& from, const QPointF& to, double reach) const;
    /// Turned about its centre by a pull; it catches at quarters, or with `steps` at every 15 degrees.
    PictureBox turned(const QPointF& from, const QPointF& to, bool steps) const;

    bool operator==(const PictureBox&) const = default;
};

/// Lines of the frame that a moved box is drawn to: its middle and its thirds.
namespace PictureGuides {

struct Caught {
    QPointF shift; ///< what is added to the centre
    std::optional<double> x;
    std::optional<double> y;
};

Caught at(const QPointF& centre, const Size& frame, double reach);

}

/// How a move changes with the box of what it moves.
namespace PlacedMove {

/// The move after its thing went from one box to another at some moment of it: its whole way goes along.
/// `restY` is where the thing stands, as a share of the height, while the move does not say.
Move changed(const Move& move, const PictureBox& from, const PictureBox& to, const Size& frame, double restY);

}

}
