#include "core/render/stage/Clock.h"

#include "core/render/stage/Stage.h"

#include <algorithm>

namespace murbo::Stage {
namespace {

constexpr double shortest = 0.05;
/// Frames' times carry rounding; a layer neither loses its first frame nor blinks between two by it.
constexpr double slack = 0.0001;

}

Clock::Clock(const PlacedOverlay& placed)
    : length(placed.end - placed.start > shortest ? placed.end - placed.start : shortest),
      natural(placed.book->playbook.naturalLength()),
      enter(placed.book->playbook.enterLength()),
      leave(placed.book->playbook.exitLength()),
      even(placed.overlay.stretch.value_or(false) || length < natural) {
    if (even) slowness = length / natural;
}

double Clock::own(double elapsed) const {
    if (even) return elapsed / slowness;
    if (elapsed < enter) return elapsed;
    if (elapsed > length - leave) return natural + (elapsed - length);
    return std::min(elapsed, natural - leave);
}

/// A time inside the exit stays that far from the end.
double Clock::stays(double time) const {
    const bool leaving = time > enter && time > natural - leave - slack;
    return leaving ? length + (time - natural) : time;
}

Clock::Span Clock::span(const Playbook::Layer& layer) const {
    const double from = layer.from.value_or(0);
    const double to = std::min(layer.to.value_or(natural), natural);
    if (even) return {slowness * from, slowness * to};
    return {stays(from), stays(to)};
}

bool Clock::Span::holds(double elapsed) const {
    return on - slack <= elapsed && elapsed < off + slack;
}

double layerStart(const PlacedOverlay& placed, const Playbook::Layer& layer) {
    return Clock(placed).span(layer).on;
}

}
