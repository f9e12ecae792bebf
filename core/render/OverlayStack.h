#pragma once

#include "core/render/stage/Stage.h"

#include <vector>

namespace murbo {

/// The overlays that are on at one moment, undermost first: generators by the rows they lie in, then all
/// others in the look's order.
struct OverlayStack {
    using Overlays = std::vector<const PlacedOverlay*>;

    Overlays belowCaptions;
    Overlays aboveCaptions; ///< those that cover captions

    static OverlayStack at(double time, const Plan& plan);

    /// Overlays one on the other upon the picture of the scene.
    static Image drawn(const Overlays& overlays, double time, const Stage::Scene& scene);
};

}
