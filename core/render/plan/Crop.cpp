#include "core/render/plan/Crop.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace murbo {

namespace {

/// How far down a crop the eyes stand, and what a crop of a face without known eyes leaves above it.
constexpr double eyeHeight = 0.42;
constexpr double faceAbove = 0.25;
constexpr double middle = 0.5;

/// A share from 0 to 1, or `otherwise` where there is none to be read.
double share(std::optional<double> value, double otherwise) {
    return value && !std::isnan(*value) ? std::clamp(*value, 0.0, 1.0) : otherwise;
}

/// A fraction of a picture within what can still be drawn from.
double bounded(double fraction) {
    return std::isnan(fraction) ? 0 : std::clamp(fraction, -16.0, 16.0);
}

/// The largest size of the target's shape in `area`, made smaller by a zoom above 1.
Size fitted(const Rect& area, Size target, double zoom) {
    const double shape = target.width / target.height;
    Size size{area.width, area.height};
    if (shape < size.width / std::max(size.height, 1.0))
        size.width = shape * size.height;
    else
        size.height = size.width / shape;
    const double closer = zoom > 1 ? zoom : 1;
    return {size.width / closer, size.height / closer};
}

/// What `area` leaves beside the crop is shared out: `across` of it to the left, `down` of it above.
Rect placed(const Rect& area, Size crop, double across, double down) {
    return {area.x + (area.width - crop.width) * across, area.y + (area.height - crop.height) * down,
            crop.width, crop.height};
}

double held(double value, double min, double max) {
    return std::clamp(value, min, std::max(min, max));
}

std::optional<Point> eyes(const Framing& framing, Size picture) {
    if (!framing.eyes) return {};
    return Point{bounded(framing.eyes->x) * picture.width, bounded(framing.eyes->y) * picture.height};
}

}

Rect Crop::scaled(const Box& box, Size picture) {
    return {bounded(box.x) * picture.width, bounded(box.y) * picture.height, bounded(box.w) * picture.width,
            bounded(box.h) * picture.height};
}

Rect Crop::within(const Rect& area, Size target, double zoom, std::optional<double> focus) {
    return placed(area, fitted(area, target, zoom), share(focus, middle), middle);
}

Rect Crop::face(const Framing& framing, Size picture, Size target, double zoom, std::optional<double> focus) {
    const Rect area = scaled(framing.face, picture);
    const Size crop = fitted(area, target, zoom);
    Rect result = placed(area, crop, share(focus, middle), faceAbove);
    const auto spot = eyes(framing, picture);
    if (!spot) return result;
    if (!focus) result.x = held(spot->x - crop.width * middle, area.x, area.right() - crop.width);
    result.y = held(spot->y - crop.height * eyeHeight, area.y, area.bottom() - crop.height);
    return result;
}

std::vector<Panel> Crop::panels(const Shot& shot, double zoom, const Framing& framing, Size picture,
                                Size frame) {
    const Rect all{0, 0, frame.width, frame.height};
    const auto filled = [&](const Rect& area, const Rect& into) {
        return Panel{within(area, {into.width, into.height}, zoom, shot.focus), into};
    };
    const auto faced = [&](const Rect& into, std::optional<double> across) {
        return Panel{face(framing, picture, {into.width, into.height}, zoom, across), into};
    };
    if (frame.width >= frame.height) return {filled({0, 0, picture.width, picture.height}, all)};

    const Rect content = scaled(framing.content, picture);
    if (!shot.playbook && shot.layout == Shot::Layout::content) return {filled(content, all)};
    if (!shot.playbook && shot.layout == Shot::Layout::face) return {faced(all, shot.focus)};

    const double seam = std::round(frame.height * share(shot.split, share(framing.split, middle)));
    return {filled(content, {0, 0, frame.width, seam}),
            faced({0, seam, frame.width, frame.height - seam}, std::nullopt)};
}

}
