#pragma once

#include "core/render/plan/PlacedOverlay.h"

namespace murbo {

/// A placement's time beside the playbook's own. Placed for longer than its length, a playbook plays its
/// entrance and its exit as they are and holds its middle; stretched, or placed for less, all of it is slowed
/// down or sped up to fit.
class PlaybookClock {
public:
    explicit PlaybookClock(const PlacedOverlay& placed);

    /// Seconds since the placement's start between which a layer is on.
    struct LayerSpan {
        double on;
        double off;
        bool holds(double elapsed) const;
    };
    LayerSpan span(const Playbook::Layer& layer) const;

    /// The playbook's own time, seconds since the placement's start being given.
    double own(double elapsed) const;

    /// Seconds of video in one of the playbook's own.
    double factor() const { return slowness; }
    /// Seconds of video that entrances and exits take.
    double entrance() const { return enter * slowness; }
    double exit() const { return leave * slowness; }

private:
    double stays(double time) const;

    double length;  // of the placement, video seconds
    double natural; // the playbook's own seconds, as the two below
    double enter;
    double leave;
    bool even;
    double slowness = 1;
};

namespace Stage {

/// Seconds from the placement's start until a layer comes on.
double layerStart(const PlacedOverlay& placed, const Playbook::Layer& layer);

}

}
