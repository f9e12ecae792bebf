#include "core/render/OverlayStack.h"

#include "core/render/plan/Motion.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace murbo {
namespace {

/// More at once nobody could tell apart; those that lie on top are drawn.
constexpr std::ptrdiff_t mostAtOnce = 100;

std::size_t rank(const PlacedOverlay* placed) {
    return placed->playbook().layered() ? placed->row : std::numeric_limits<std::size_t>::max();
}

bool isMoved(const Overlay& overlay) {
    return overlay.move && (overlay.move->from || overlay.move->to);
}

/// Moved, scaled and turned as one, about the frame's middle.
Image moved(const Image& layers, const PlacedOverlay& placed, double time, Size frame) {
    const double progress = (time - placed.start) / std::max(placed.end - placed.start, 0.01);
    const auto to = Motion::placement(*placed.overlay.move, progress);
    const double scale = to.scale.value_or(1);
    return layers.transformed(
        Transform()
            .translated(-frame.width / 2, -frame.height / 2)
            .scaled(scale, scale)
            .rotated(to.rotation.value_or(0))
            .translated(frame.width * to.x.value_or(0.5), frame.height * to.y.value_or(0.5)));
}

Image drawn(const PlacedOverlay& placed, double time, const Stage::Scene& scene) {
    if (!isMoved(placed.overlay)) return Stage::draw(placed, time, scene, scene.below);
    const auto [width, height] = scene.plan.frame;
    const auto layers = Stage::draw(placed, time, scene, Image());
    return moved(layers, placed, time, scene.plan.frame).over(scene.below).cropped({0, 0, width, height});
}

}

OverlayStack OverlayStack::at(double time, const Plan& plan) {
    Overlays on;
    for (const auto& placed : plan.overlays)
        if (placed.isOn(time)) on.push_back(&placed);
    std::ranges::stable_sort(on, {}, rank);
    if (std::ssize(on) > mostAtOnce) on.erase(on.begin(), on.end() - mostAtOnce);
    OverlayStack stack;
    for (const auto* placed : on)
        (placed->playbook().cover.value_or(false) ? stack.aboveCaptions : stack.belowCaptions)
            .push_back(placed);
    return stack;
}

Image OverlayStack::drawn(const Overlays& overlays, double time, const Stage::Scene& scene) {
    auto now = scene;
    for (const auto* placed : overlays) now.below = murbo::drawn(*placed, time, now);
    return now.below;
}

}
