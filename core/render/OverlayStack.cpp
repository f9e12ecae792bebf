#include "core/render/OverlayStack.h"

#include "core/render/plan/Motion.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace murbo {
namespace {

/// Nobody could tell more of them apart at once; those on top are drawn.
constexpr std::ptrdiff_t maxAtOnce = 100;
/// The same for those that show what lies below: each keeps a picture of it.
constexpr std::ptrdiff_t maxReading = 16;

std::size_t rank(const PlacedOverlay* placed) {
    return placed->playbook().layered() ? placed->row : std::numeric_limits<std::size_t>::max();
}

bool isMoved(const Overlay& overlay) {
    return overlay.move && (overlay.move->from || overlay.move->to);
}

/// The largest scale at which a move shows its overlay.
double enlarged(const Move& move) {
    constexpr double max = 4; // nothing has finer letters than that
    double scale = 1;
    for (const auto* end : {&move.from, &move.to})
        if (*end) scale = std::max(scale, std::abs((*end)->scale.value_or(1)));
    return std::min(scale, max);
}

/// Moved, scaled and turned as one, about the frame's middle. What is only put elsewhere stays on whole
/// pixels, or its letters would blur.
Image moved(const Image& layers, const PlacedOverlay& placed, double time, Size frame) {
    const auto& move = *placed.overlay.move;
    const double progress = (time - placed.start) / std::max(placed.end - placed.start, 0.01);
    const auto to = Motion::placement(move, progress);
    const double scale = to.scale.value_or(1);
    const double turn = to.rotation.value_or(0);
    Point middle{frame.width * to.x.value_or(0.5), frame.height * to.y.value_or(0.5)};
    if (!move.to && scale == 1 && turn == 0)
        middle = {frame.width / 2 + std::round(middle.x - frame.width / 2),
                  frame.height / 2 + std::round(middle.y - frame.height / 2)};
    return layers.transformed(Transform()
                                  .translated(-frame.width / 2, -frame.height / 2)
                                  .scaled(scale, scale)
                                  .rotated(turn)
                                  .translated(middle.x, middle.y));
}

/// Its first frame may come a hair before it starts.
Image drawn(const PlacedOverlay& placed, double frameTime, const Stage::Scene& scene) {
    const double time = std::max(frameTime, placed.start);
    if (!isMoved(placed.overlay)) return Stage::draw(placed, time, scene, scene.below);
    const auto [width, height] = scene.plan.frame;
    auto own = scene;
    own.enlarged = enlarged(*placed.overlay.move);
    if (Stage::showsBelow(placed, time, scene)) own.below = scene.below.drawnOnce(); // it is shown twice
    const auto layers = Stage::draw(placed, time, own, Image());
    return moved(layers, placed, time, scene.plan.frame).over(own.below).cropped({0, 0, width, height});
}

}

OverlayStack OverlayStack::at(double time, const Plan& plan) {
    Overlays on;
    for (const auto& placed : plan.overlays)
        if (placed.isOn(time)) on.push_back(&placed);
    std::ranges::stable_sort(on, {}, rank);
    if (std::ssize(on) > maxAtOnce) on.erase(on.begin(), on.end() - maxAtOnce);
    OverlayStack stack;
    for (const auto* placed : on)
        (placed->playbook().cover.value_or(false) ? stack.aboveCaptions : stack.belowCaptions)
            .push_back(placed);
    return stack;
}

Image OverlayStack::drawn(const Overlays& overlays, double time, const Stage::Scene& scene) {
    const auto reads = [&](const auto* placed) { return Stage::showsBelow(*placed, time, scene); };
    auto tooMany = std::ranges::count_if(overlays, reads) - maxReading;
    auto now = scene;
    for (const auto* placed : overlays) {
        const bool leftOut = tooMany > 0 && reads(placed) && tooMany-- > 0;
        if (!leftOut) now.below = murbo::drawn(*placed, time, now);
    }
    return now.below;
}

}
