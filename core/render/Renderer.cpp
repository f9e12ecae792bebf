#include "core/render/Renderer.h"

#include "core/model/Source.h"
#include "core/model/Transition.h"
#include "core/render/CaptionMotion.h"
#include "core/render/OverlayStack.h"
#include "core/render/plan/Motion.h"
#include "core/render/stage/Stage.h"

#include <algorithm>
#include <cmath>

namespace murbo::Renderer {
namespace {

constexpr unsigned long long glitchSeed = 0x9E3779B97F5F6779;

Rect whole(Size frame) {
    return {0, 0, frame.width, frame.height};
}

Image filled(Colour colour, Size frame) {
    return Image::colour(colour).cropped(whole(frame));
}

/// One pixel more at the foot of a panel that the next one hides: what scales or turns the whole frame would
/// otherwise let the background through between the two, where each covers a part of a pixel.
Panel reachingUnder(Panel panel) {
    if (panel.frame.empty()) return panel;
    panel.source.height += panel.source.height / panel.frame.height;
    panel.frame.height += 1;
    return panel;
}

/// The picture in the panels of its shot.
Image inPanels(const Image& picture, const PlacedShot& placed, const Framing& framing, const Plan& plan,
               double time) {
    const auto extent = picture.extent();
    const double jolt = placed.jolt(time);
    Image result;
    for (auto panel : Crop::panels(placed.moved(time), placed.zoom(time), framing,
                                   {extent.width, extent.height}, plan.frame)) {
        panel.source.y += jolt;
        const bool last = panel.frame.bottom() >= plan.frame.height;
        result = draw(picture, last ? panel : reachingUnder(panel)).over(result);
    }
    return result;
}

/// The playbook that lays a shot out, or null. None does where the frame is not upright.
const Shared<Book>* layoutOf(const PlacedShot& placed, const Plan& plan) {
    return plan.frame.width < plan.frame.height ? plan.layout(placed.shot) : nullptr;
}

/// What stands under captions and overlays, before any transition.
Image base(const Stage::Scene& scene, const PlacedShot& placed, double time) {
    const auto& plan = scene.plan;
    const auto& background = scene.below;
    if (const auto* generated = plan.generatedAt(time))
        return Stage::draw(*generated, std::max(time, generated->start),
                           {background, {}, {}, plan, scene.media, scene.budget}, background);
    if (!scene.source) return background;
    if (const auto* book = layoutOf(placed, plan)) {
        auto values = Plan::values(placed.shot, **book, scene.framing);
        return Stage::draw(PlacedOverlay::layout(placed, time, *book, std::move(values)),
                           std::max(time, placed.start), scene, background);
    }
    return inPanels(*scene.source, placed, scene.framing, plan, time).over(background);
}

Image inTransition(const Image& image, const PlacedShot& placed, const Plan& plan, double time) {
    const double age = time - placed.start;
    if (!placed.shot.transition || placed.implicit || age >= transitionLength) return image;
    return transitionIn(*placed.shot.transition, image, age / transitionLength, plan.frame);
}

Image blurred(const Image& image, double left, Size frame) {
    const Point middle{frame.width / 2, frame.height / 2};
    return image.clamped().zoomBlurred(middle, 40 * left).cropped(whole(frame));
}

Image whipped(const Image& image, double left, Size frame) {
    const auto aside = Transform().translated(frame.width * left * left * 0.5, 0);
    return image.clamped().motionBlurred(60 * left, 0).transformed(aside).cropped(whole(frame));
}

Image glitched(const Image& image, double progress, Size frame) {
    const double noise = Motion::noise(glitchSeed, static_cast<long long>(progress * 30));
    const auto aside = Transform().translated((noise - 0.5) * 60 * frame.width / 1080, 0);
    return image.transformed(aside).cropped(whole(frame));
}

/// Where a layout has captions stand.
std::optional<double> seamOf(const Book& book, const Shot& shot, const Framing& framing) {
    if (!book.playbook.captions) return std::nullopt;
    const auto height = book.playbook.captions->value(Plan::values(shot, book, framing));
    return height && std::isfinite(*height) ? height : std::nullopt;
}

/// Height of a caption's middle, a fraction of the frame from the top.
double height(const Placement& placement, const Shot& shot, const Framing& framing, const Plan& plan) {
    if (placement.y) return *placement.y;
    const double usual = plan.style.y.value_or(0.3);
    const bool seam = plan.frame.width < plan.frame.height && plan.style.seam.value_or(true);
    if (!seam) return usual;
    if (const auto* book = plan.layout(shot)) return seamOf(**book, shot, framing).value_or(usual);
    if (shot.layout != Shot::Layout::split) return usual;
    return std::clamp(shot.split.value_or(framing.split), 0.0, 1.0);
}

/// A caption that lies still is put on whole pixels: between them its letters would only blur.
Transform onPixels(Transform transform) {
    transform.tx = std::round(transform.tx);
    transform.ty = std::round(transform.ty);
    return transform;
}

bool travels(const CaptionCue& cue) {
    return cue.move && cue.move->to;
}

}

Image render(const std::optional<Image>& picture, const std::optional<UUID>& source, const Plan& plan,
             double time, CaptionCache& captions, PlaybookMedia& media) {
    const auto background = filled(Colour::black, plan.frame);
    const auto* placed = plan.shot(time);
    if (!placed) return background;
    Stage::Budget budget;
    Stage::Scene scene{background, picture, plan.framing(source), plan, media, &budget};
    scene.below = base(scene, *placed, time);
    // A glitch leaves a bare edge.
    scene.below = inTransition(scene.below, *placed, plan, time).over(background);
    const auto stack = OverlayStack::at(time, plan);
    scene.below = OverlayStack::drawn(stack.belowCaptions, time, scene);
    if (const auto* cue = plan.cue(time)) {
        if (const auto image = caption(*cue, time, placed->shot, scene.framing, plan, captions))
            scene.below = image->over(scene.below);
    }
    return OverlayStack::drawn(stack.aboveCaptions, time, scene).cropped(whole(plan.frame));
}

Image draw(const Image& picture, const Panel& panel) {
    const auto extent = picture.extent();
    const auto place = Transform()
                           .translated(-(extent.x + panel.source.x), -(extent.y + panel.source.y))
                           .scaled(panel.frame.width / std::max(panel.source.width, 1.0),
                                   panel.frame.height / std::max(panel.source.height, 1.0))
                           .translated(panel.frame.x, panel.frame.y);
    return picture.clamped().transformed(place).cropped(panel.frame);
}

Image transitionIn(std::string_view name, const Image& image, double progress, Size frame) {
    const auto transition = fromRawText<Transition>(name);
    if (!transition) return image;
    const double p = std::clamp(progress, 0.0, 1.0);
    const double left = 1 - p;
    switch (*transition) {
        case Transition::flash:
            return filled(Colour::white, frame).faded(0.9 * left * left).over(image);
        case Transition::dip:
            return filled(Colour::black, frame).faded(left).over(image);
        case Transition::blur:
            return blurred(image, left, frame);
        case Transition::whip:
            return whipped(image, left, frame);
        case Transition::glitch:
            return left > 0.35 ? glitched(image, p, frame) : image;
    }
    return image;
}

std::optional<Image> caption(const CaptionCue& cue, double time, const Shot& shot, const Framing& framing,
                             const Plan& plan, CaptionCache& captions) {
    const auto [width, high] = plan.frame;
    const auto picture = captions.picture({.text = cue.text,
                                           .style = plan.style,
                                           .fonts = plan.fonts,
                                           .big = cue.big,
                                           .reveal = CaptionMotion::reveal(cue, plan.style, time),
                                           .stress = cue.stress,
                                           .scale = std::min(width, high) / 1080,
                                           .width = CaptionPicture::widestShare * width});
    if (!picture) return std::nullopt;

    const auto movement = CaptionMotion::at(cue, plan.style, time, plan.frame);
    const auto placement = Motion::placement(cue.move.value_or(Move()), CaptionMotion::share(cue, time));
    const auto middle = picture->extent().middle();
    const double scale = movement.scale * placement.scale.value_or(1);
    const double turn = movement.rotation + placement.rotation.value_or(0);
    const auto place = Transform()
                           .translated(-middle.x, -middle.y)
                           .scaled(scale, scale)
                           .rotated(turn)
                           .translated(width * placement.x.value_or(0.5) + movement.dx,
                                       high * height(placement, shot, framing, plan) + movement.dy);
    const bool still = scale == 1 && turn == 0 && movement.dx == 0 && movement.dy == 0 && !travels(cue);
    return picture->transformed(still ? onPixels(place) : place).faded(movement.opacity);
}

}
