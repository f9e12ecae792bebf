#include "app/desktop/viewer/PickedPlace.h"

#include "core/render/CaptionMotion.h"
#include "core/render/Renderer.h"
#include "core/render/plan/Motion.h"
#include "core/render/stage/Stage.h"
#include "core/render/stage/VisibleBounds.h"
#include "platform/image/draw/Canvas.h"

#include <algorithm>
#include <cmath>

namespace murbo::PickedPlace {
namespace {

constexpr double coarse = 0.25; ///< a playbook is measured at a quarter of the frame
constexpr double much = 0.5;    ///< of the frame, from which a box says little of where a thing is seen
constexpr int faintest = 24;    ///< of 255, that is seen as something
constexpr double smallest = 16; ///< pixels of a box, so that it can be taken

QRectF atLeast(QRectF rect) {
    const double wide = std::max(smallest - rect.width(), 0.0) / 2;
    const double high = std::max(smallest - rect.height(), 0.0) / 2;
    return rect.adjusted(-wide, -high, wide, high);
}

QRectF wholeFrame(const Size& frame) {
    return {-frame.width / 2, -frame.height / 2, frame.width, frame.height};
}

/// A moment at which it stands complete, near a time.
double settled(const PlacedOverlay& placed, double time) {
    const double from = placed.start + placed.playbook().enterLength();
    const double to = placed.end - placed.playbook().exitLength() - 0.02;
    return from < to ? std::clamp(time, from, to) : (placed.start + placed.end) / 2;
}

/// An overlay alone, as it lies by itself, at a quarter of the frame.
Bitmap coarsely(const PlacedOverlay& placed, const MeasureOrder& order, PlaybookMedia& media) {
    const auto& frame = order.plan.frame;
    const auto footage = Image::colour(Colour::white).cropped({0, 0, 1920, 1080});
    const auto below = Image::colour(Colour::black).cropped({0, 0, frame.width, frame.height});
    const Stage::Scene scene{below, footage, Framing(), order.plan, media};
    const auto layers = Stage::draw(placed, settled(placed, order.time), scene, Image());
    const auto small = layers.transformed(Transform().scaled(coarse, coarse));
    return Canvas::bitmap(small, {0, 0, frame.width * coarse, frame.height * coarse});
}

std::optional<Measured> measured(const PlacedOverlay& placed, const MeasureOrder& order,
                                 PlaybookMedia& media) {
    const auto& frame = order.plan.frame;
    const VisibleBounds seen(coarsely(placed, order, media));
    if (seen.empty()) return Measured{wholeFrame(frame), 0.5};
    const QRectF rect(QPointF(seen.left, seen.top) / coarse, QPointF(seen.right, seen.bottom) / coarse);
    return Measured{atLeast(rect.translated(-frame.width / 2, -frame.height / 2)), 0.5};
}

/// Whether an overlay is there rather than clear, at a point of the frame as it lies by itself.
bool isSolid(const PlacedOverlay& placed, const MeasureOrder& order, const QPointF& point,
             PlaybookMedia& media) {
    const auto bitmap = coarsely(placed, order, media);
    const auto x = static_cast<int>(std::floor(point.x() * coarse));
    const auto y = static_cast<int>(std::floor(point.y() * coarse));
    if (x < 0 || y < 0 || x >= bitmap.width() || y >= bitmap.height()) return false;
    return bitmap.row(y)[4 * x + 3] > faintest;
}

std::optional<Measured> measured(const CaptionCue& cue, const MeasureOrder& order) {
    const auto& plan = order.plan;
    const auto bitmap = CaptionPicture::bitmap(picture(cue, plan));
    if (!bitmap) return {};
    const VisibleBounds seen(*bitmap);
    if (seen.empty()) return {};
    const QPointF middle(bitmap->width() / 2.0, bitmap->height() / 2.0);
    const QRectF rect(QPointF(seen.left, seen.top) - middle, QPointF(seen.right, seen.bottom) - middle);

    // Where it stands by itself is what the renderer makes of one that nobody has moved.
    auto still = cue;
    still.move = Move{.enter = "none", .exit = "none"};
    const double time = (cue.start + cue.end) / 2;
    const auto* shot = plan.shot(time);
    CaptionCache captions;
    const auto drawn =
        shot ? Renderer::caption(still, time, shot->shot, plan.framing(shot->shot.source), plan, captions)
             : std::nullopt;
    return Measured{atLeast(rect), drawn ? drawn->extent().middle().y / plan.frame.height : 0.5};
}

}

CaptionPicture::Request picture(const CaptionCue& cue, const Plan& plan) {
    return {.text = cue.text,
            .style = plan.style,
            .fonts = plan.fonts,
            .big = cue.big,
            .stress = cue.stress,
            .scale = std::min(plan.frame.width, plan.frame.height) / 1080,
            .width = CaptionPicture::widestShare * plan.frame.width};
}

const PlacedOverlay* overlayOf(const Plan& plan, const Pick& pick) {
    if (pick.kind != Pick::Kind::overlay) return nullptr;
    for (const auto& placed : plan.overlays)
        if (placed.overlay.id == pick.id) return &placed;
    return nullptr;
}

const CaptionCue* cueOf(const Plan& plan, const Pick& pick, double time) {
    if (pick.kind != Pick::Kind::caption) return nullptr;
    const CaptionCue* found = nullptr;
    for (const auto& cue : plan.cues) {
        if (cue.line != pick.id || (pick.piece && cue.piece && *cue.piece != *pick.piece)) continue;
        if (!found || (cue.start <= time && time < cue.end)) found = &cue;
    }
    return found;
}

std::optional<Measured> measure(const MeasureOrder& order, PlaybookMedia& media) {
    if (const auto* placed = overlayOf(order.plan, order.pick)) return measured(*placed, order, media);
    if (const auto* cue = cueOf(order.plan, order.pick, order.time)) return measured(*cue, order);
    return {};
}

bool shows(const MeasureOrder& order, const QPointF& point, PlaybookMedia& media) {
    const auto stands = placed(order.plan, order.pick, order.time);
    const auto found = stands ? measure(order, media) : std::nullopt;
    if (!found) return false;
    const auto& frame = order.plan.frame;
    const auto lies = box(*found, *stands, frame);
    const auto here = lies.local(point);
    const auto size = lies.size();
    if (std::abs(here.x()) > size.width() / 2 || std::abs(here.y()) > size.height() / 2) return false;
    const auto* overlay = overlayOf(order.plan, order.pick);
    if (!overlay || size.width() * size.height() < much * frame.width * frame.height) return true;
    const auto natural = here / lies.scale + found->natural.center();
    return isSolid(*overlay, order, natural + QPointF(frame.width / 2, frame.height / 2), media);
}

std::optional<Placed> placed(const Plan& plan, const Pick& pick, double time) {
    if (const auto* overlay = overlayOf(plan, pick)) {
        if (!overlay->isOn(time)) return {};
        const double length = std::max(overlay->end - overlay->start, 0.01);
        return Placed{overlay->overlay.move.value_or(Move()), (time - overlay->start) / length};
    }
    if (const auto* cue = cueOf(plan, pick, time)) {
        if (time < cue->start - 1e-6 || time >= cue->end) return {};
        return Placed{cue->move.value_or(Move()), CaptionMotion::share(*cue, time)};
    }
    return {};
}

PictureBox box(const Measured& measured, const Placed& placed, const Size& frame) {
    const auto at = Motion::placement(placed.move, placed.share);
    return {measured.natural,
            {at.x.value_or(0.5) * frame.width, at.y.value_or(measured.restY) * frame.height},
            std::clamp(at.scale.value_or(1), PictureBox::minScale, 100.0),
            at.rotation.value_or(0)};
}

}
