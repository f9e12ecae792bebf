#include "core/render/plan/PlaybookClock.h"

#include <algorithm>

namespace murbo {
namespace {

constexpr double shortest = 0.05;
/// Frames' times carry rounding; a layer neither loses its first frame nor blinks between two by it.
constexpr double slack = 0.0001;

}

PlaybookClock::PlaybookClock(const PlacedOverlay& placed)
    : length(placed.end - placed.start > shortest ? placed.end - placed.start : shortest),
      natural(placed.book->playbook.naturalLength()),
      enter(placed.book->playbook.enterLength()),
      leave(placed.book->playbook.exitLength()),
      even(placed.overlay.stretch.value_or(false) || length < natural) {
    if (even) slowness = length / natural;
}

double PlaybookClock::own(double elapsed) const {
    if (even) return elapsed / slowness;
    if (elapsed < enter) return elapsed;
    if (elapsed > length - leave) return natural + (elapsed - length);
    return std::min(elapsed, natural - leave);
}

/// A time inside the exit stays that far from the end.
double PlaybookClock::stays(double time) const {
    const bool leaving = time > enter && time > natural - leave - slack;
    return leaving ? length + (time - natural) : time;
}

PlaybookClock::LayerSpan PlaybookClock::span(const Playbook::Layer& layer) const {
    const double from = layer.from.value_or(0);
    const double to = std::min(layer.to.value_or(natural), natural);
    if (even) return {slowness * from, slowness * to};
    return {stays(from), stays(to)};
}

bool PlaybookClock::LayerSpan::holds(double elapsed) const {
    return on - slack <= elapsed && elapsed < off + slack;
}

double Stage::layerStart(const PlacedOverlay& placed, const Playbook::Layer& layer) {
    return PlaybookClock(placed).span(layer).on;
}

}
