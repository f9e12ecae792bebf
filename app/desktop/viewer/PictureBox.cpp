#include "app/desktop/viewer/PictureBox.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace murbo {
namespace {

constexpr double catching = 3; ///< degrees about a quarter turn
constexpr double step = 15;    ///< degrees
constexpr double farthest = 2; ///< frames beyond the frame that a thing may be moved

QPointF rotated(const QPointF& point, double degrees) {
    const double angle = degrees * std::numbers::pi / 180;
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return {point.x() * c - point.y() * s, point.x() * s + point.y() * c};
}

double angle(const QPointF& point) {
    return std::atan2(point.y(), point.x()) * 180 / std::numbers::pi;
}

/// Within half a turn to either side.
double wrapped(double degrees) {
    return std::remainder(degrees, 360);
}

/// The same thing scaled and turned otherwise, with its centre where it was.
PictureBox about(const PictureBox& box, double scale, double turn) {
    auto next = box;
    next.scale = scale;
    next.turn = turn;
    next.pivot += box.centre() - next.centre();
    return next;
}

QRectF boxAround(const QSizeF& size) {
    return {QPointF(-size.width() / 2, -size.height() / 2), size};
}

}

QPointF PictureBox::centre() const {
    return pivot + rotated(natural.center() * scale, turn);
}

QPointF PictureBox::local(const QPointF& point) const {
    return rotated(point - centre(), -turn);
}

QPointF PictureBox::onFrame(const QPointF& given) const {
    return centre() + rotated(given, turn);
}

PictureBox::PictureGrip PictureBox::at(const QPointF& point, double reach, double knob) const {
    const auto here = local(point);
    const auto box = boxAround(size());
    if (std::hypot(here.x(), here.y() - box.top() + knob) <= 1.5 * reach) return PictureGrip::turn;
    switch (BoxHandles::at(box, here, {reach, reach})) {
        case BoxHandles::BoxHandle::none:
            return PictureGrip::none;
        case BoxHandles::BoxHandle::body:
            return PictureGrip::body;
        default:
            return PictureGrip::size;
    }
}

PictureBox PictureBox::movedBy(const QPointF& by) const {
    auto next = *this;
    next.pivot += by;
    return next;
}

PictureBox PictureBox::sized(const QPointF& from, const QPointF& to, double reach) const {
    using namespace BoxHandles;
    const auto start = local(from);
    const auto now = local(to);
    const auto handle = BoxHandles::at(boxAround(size()), start, {reach, reach});
    double before = std::hypot(start.x(), start.y());
    double after = std::hypot(now.x(), now.y());
    if (handle == BoxHandle::left || handle == BoxHandle::right) {
        before = std::abs(start.x());
        after = std::max(now.x() * (start.x() < 0 ? -1 : 1), 0.0);
    } else if (handle == BoxHandle::top || handle == BoxHandle::bottom) {
        before = std::abs(start.y());
        after = std::max(now.y() * (start.y() < 0 ? -1 : 1), 0.0);
    }
    if (before < 1e-6) return *this;
    return about(*this, std::clamp(scale * after / before, minScale, maxScale), turn);
}

PictureBox PictureBox::turned(const QPointF& from, const QPointF& to, bool steps) const {
    double degrees = turn + angle(to - centre()) - angle(from - centre());
    const double quarter = std::round(degrees / 90) * 90;
    if (steps)
        degrees = std::round(degrees / step) * step;
    else if (std::abs(degrees - quarter) <= catching)
        degrees = quarter;
    return about(*this, scale, turn + wrapped(degrees - turn));
}

PictureGuides::Caught PictureGuides::at(const QPointF& centre, const Size& frame, double reach) {
    const auto nearest = [reach](double at, double length) {
        std::optional<double> found;
        for (const double share : {1.0 / 2, 1.0 / 3, 2.0 / 3})
            if (!found && std::abs(share * length - at) <= reach) found = share * length;
        return found;
    };
    Caught caught;
    caught.x = nearest(centre.x(), frame.width);
    caught.y = nearest(centre.y(), frame.height);
    caught.shift = {caught.x ? *caught.x - centre.x() : 0, caught.y ? *caught.y - centre.y() : 0};
    return caught;
}

Move PlacedMove::changed(const Move& move, const PictureBox& from, const PictureBox& to, const Size& frame,
                         double restY) {
    auto next = move;
    auto first = move.from.value_or(Placement());
    const auto add = [&](std::optional<double> Placement::*field, double by, double rest, double low,
                         double high) {
        if (by == 0) return;
        const bool ends = next.to && next.to.value().*field;
        // Where only the end is said, the way begins at rest, wherever the thing stands by itself.
        const double begin = (first.*field).value_or(ends && field == &Placement::y ? 0.5 : rest);
        first.*field = std::clamp(begin + by, low, high);
        if (ends) next.to.value().*field = std::clamp(*(next.to.value().*field) + by, low, high);
    };
    add(&Placement::x, (to.pivot.x() - from.pivot.x()) / frame.width, 0.5, -farthest, 1 + farthest);
    add(&Placement::y, (to.pivot.y() - from.pivot.y()) / frame.height, restY, -farthest, 1 + farthest);
    add(&Placement::rotation, to.turn - from.turn, 0, -3600, 3600);
    if (to.scale != from.scale) {
        const double factor = to.scale / from.scale;
        first.scale =
            std::clamp(first.scale.value_or(1) * factor, PictureBox::minScale, PictureBox::maxScale);
        if (next.to && next.to->scale)
            next.to->scale = std::clamp(*next.to->scale * factor, PictureBox::minScale, PictureBox::maxScale);
    }
    next.from = first;
    return next;
}

}
