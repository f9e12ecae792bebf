#include "core/render/stage/StagedLayer.h"

#include "core/playbooks/LayerBlend.h"
#include "core/render/plan/Motion.h"
#include "core/render/stage/Holds.h"
#include "core/render/stage/KeyedValue.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace murbo::Stage {
namespace {

using Key = Playbook::Key;

/// Where a layer stands.
struct Pose {
    double x; ///< shares of the frame
    double y;
    double scale;
    double rotation;
    double opacity;
    bool travels = false; ///< on its way between keys
};

class Posing {
public:
    Posing(const Context& given, double time) : context(given), keyTime(time) {}

    Pose pose() {
        const auto& layer = context.layer;
        Pose pose{.x = number(layer.x, &Key::x, 0.5),
                  .y = number(layer.y, &Key::y, 0.5),
                  .scale = number(layer.scale, &Key::scale, 1),
                  .rotation = number(layer.rotation, &Key::rotation, 0),
                  .opacity = 1,
                  .travels = travels};
        pose.opacity = number(layer.opacity, &Key::opacity, 1);
        return pose;
    }

private:
    double number(const std::optional<Playbook::Num>& own, std::optional<double> Key::*field, double rest) {
        const auto& keys = context.layer.keys;
        const auto keyed = keys ? KeyedValue::at(keyTime, *keys, field) : std::nullopt;
        travels = travels || (keyed && keyed->travels);
        return keyed ? keyed->value : context.number(own).value_or(rest);
    }

    const Context& context;
    double keyTime;
    bool travels = false;
};

Pose poseOf(const Context& context, const PlaybookClock& clock, double elapsed) {
    return Posing(context, clock.own(elapsed) - context.layer.from.value_or(0)).pose();
}

std::optional<Hold> holdOf(const Context& context) {
    return fromRawText<Hold>(context.text(context.layer.hold).value_or(""));
}

Movement entered(const std::optional<std::string>& word, double progress, Size frame) {
    const auto entrance = fromRawText<Entrance>(word.value_or(""));
    return entrance ? Motion::enter(*entrance, progress, frame) : Movement();
}

/// Coming in, staying and going, all at once.
Movement movementOf(const Context& context, const PlaybookClock& clock, double elapsed) {
    const auto& layer = context.layer;
    const auto span = clock.span(layer);
    const Size frame = context.scene.plan.frame;
    Movement movement;
    if (clock.entrance() > 0)
        movement = movement.with(entered(layer.enter, (elapsed - span.on) / clock.entrance(), frame));
    if (clock.exit() > 0)
        movement = movement.with(entered(layer.exit, (span.off - elapsed) / clock.exit(), frame));
    if (const auto hold = holdOf(context))
        movement = movement.with(Holds::at(*hold, context.held, context.index));
    return movement;
}

bool keepsMoving(const Context& context) {
    const auto hold = holdOf(context);
    return hold && Holds::isMoving(*hold);
}

/// The scale of a picture of that extent, clamped to where it shows less than a thousandth of itself at once:
/// more could only strain the arithmetic.
double clampedScale(double scale, const Rect& extent) {
    constexpr double largest = 1e6; // pixels of its longer side
    const double max = largest / std::max({extent.width, extent.height, 1.0});
    return std::clamp(scale, -max, max);
}

/// Puts a picture that stands upright and still on whole pixels: between them letters blur, and edges that
/// should meet leave a seam.
Transform onPixels(const Transform& place, const Rect& extent) {
    // A hair above the half, so that edges which meet there are rounded alike.
    const auto whole = [](double value) { return std::floor(value + 0.5 + 1e-6); };
    const Rect there = place.apply(extent);
    const double left = whole(there.x);
    const double top = whole(there.y);
    const double width = whole(there.right()) - left;
    const double height = whole(there.bottom()) - top;
    if (width < 1 || height < 1) return place;
    return Transform()
        .translated(-extent.x, -extent.y)
        .scaled(width / extent.width, height / extent.height)
        .translated(left, top);
}

Transform placeOf(const LayerPicture& picture, const Context& context, const Pose& pose,
                  const Movement& movement) {
    const Rect extent = picture.image.extent();
    const double scale = clampedScale(pose.scale * picture.scale * movement.scale, extent);
    const double turn = pose.rotation + movement.rotation;
    const Point middle = extent.middle();
    const auto place =
        Transform()
            .translated(-middle.x, -middle.y)
            .scaled(scale, scale)
            .rotated(turn)
            .translated(context.width() * pose.x + movement.dx, context.height() * pose.y + movement.dy);
    const bool still = movement.rests() && turn == 0 && scale > 0 && !pose.travels && !keepsMoving(context);
    return still && !picture.round ? onPixels(place, extent) : place;
}

/// Whether a picture at an angle hides the whole frame, its smooth edges well outside.
bool coversAtAngle(const Image& image, const Transform& place, const Rect& frame) {
    constexpr double margin = 2;
    const Rect extent = image.extent();
    if (!image.isOpaqueOver(extent) || !place.invertible()) return false;
    const Transform back = place.inverse();
    const double left = frame.x - margin, right = frame.right() + margin;
    const double top = frame.y - margin, bottom = frame.bottom() + margin;
    const std::array corners{Point{left, top}, Point{right, top}, Point{left, bottom}, Point{right, bottom}};
    return std::all_of(corners.begin(), corners.end(), [&](Point corner) {
        const Point at = back.apply(corner);
        return at.x >= extent.x && at.x <= extent.right() && at.y >= extent.y && at.y <= extent.bottom();
    });
}

/// Where it covers the frame its edges may as well repeat, and it is known to be opaque.
Image moved(const Image& image, const Transform& place, const Rect& frame) {
    const bool covers = !place.keepsAxes() && coversAtAngle(image, place, frame);
    return (covers ? image.clamped() : image).transformed(place).cropped(frame);
}

Blend blendOf(const std::optional<std::string>& word) {
    return fromRawText<Blend>(word.value_or("")).value_or(Blend::normal);
}

/// A wipe's share of the picture, from its left.
Image revealed(const Image& image, double share) {
    if (!(share < 1)) return image;
    Rect part = image.extent();
    part.width *= std::max(share, 0.0);
    return image.cropped(part);
}

}

StagedLayer StagedLayer::place(const LayerPicture& picture, const Context& context,
                               const PlaybookClock& clock, double elapsed) {
    constexpr double full = 0.999;
    const Pose pose = poseOf(context, clock, elapsed);
    const Movement movement = movementOf(context, clock, elapsed);
    const Transform place = picture.placed ? Transform() : placeOf(picture, context, pose, movement);
    const double opacity = pose.opacity * movement.opacity;
    const Image image = moved(revealed(picture.image, movement.reveal), place, context.frame());
    StagedLayer layer{opacity < full ? image.faded(opacity) : image, blendOf(context.layer.blend)};
    layer.costly = layer.blend != Blend::normal || picture.round || !place.keepsAxes();
    layer.hides = layer.blend == Blend::normal && layer.image.isOpaqueOver(context.frame());
    return layer;
}

}
