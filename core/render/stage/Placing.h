#pragma once

#include "core/render/plan/PlaybookClock.h"
#include "core/render/stage/Elements.h"

namespace murbo::Stage {

/// A layer's picture at its place in the frame.
struct Laid {
    Image image; ///< faded, cropped to the frame
    Blend blend = Blend::normal;
    bool hides = false; ///< nothing of what lies below shows
};

/// `elapsed` is in seconds since the placement's start.
Laid laid(const Made& made, const Context& context, const PlaybookClock& clock, double elapsed);

}
