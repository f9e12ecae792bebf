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

Rect scaled(const Box& box, Size picture) {
    return {bounded(box.x) * picture.width, bounded(box.y) * picture.height, bounded(box.w) * picture.width,
            bounded(box.h) * picture.height};
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

double within(double value, double least, double most) {
    return std::clamp(value, least, std::max(least, most));
}

/// A crop of the face that keeps the eyes, where they are known, in the middle and at their height. A focus
/// overrules them across.
Rect faceCrop(const Rect& face, Size crop, const std::optional<Point>& eyes, std::optional<double> focus) {
    Rect result = placed(face, crop, share(focus, middle), faceAbove);
    if (!eyes) return result;
    if (!focus) result.x = within(eyes->x - crop.width * middle, face.x, face.right() - crop.width);
    result.y = within(eyes->y - crop.height * eyeHeight, face.y, face.bottom() - crop.height);
    return result;
}

std::optional<Point> eyes(const Framing& framing, Size picture) {
    if (!framing.eyes) return {};
    return Point{bounded(framing.eyes->x) * picture.width, bounded(framing.eyes->y) * picture.height};
}

}

std::vector<Panel> Crop::panels(const Shot& shot, double zoom, const Framing& framing, Size picture,
                                Size frame) {
    const Rect all{0, 0, frame.width, frame.height};
    const double focus = share(shot.focus, middle);
    const auto filled = [&](const Rect& area, const Rect& into) {
        return Panel{placed(area, fitted(area, {into.width, into.height}, zoom), focus, middle), into};
    };
    if (frame.width >= frame.height) return {filled({0, 0, picture.width, picture.height}, all)};

    const Rect content = scaled(framing.content, picture);
    const Rect face = scaled(framing.face, picture);
    const auto faced = [&](const Rect& into, std::optional<double> across) {
        const Size crop = fitted(face, {into.width, into.height}, zoom);
        return Panel{faceCrop(face, crop, eyes(framing, picture), across), into};
    };
    if (!shot.playbook && shot.layout == Shot::Layout::content) return {filled(content, all)};
    if (!shot.playbook && shot.layout == Shot::Layout::face) return {faced(all, shot.focus)};

    const double seam = std::round(frame.height * share(shot.split, share(framing.split, middle)));
    return {filled(content, {0, 0, frame.width, seam}),
            faced({0, seam, frame.width, frame.height - seam}, std::nullopt)};
}

}
