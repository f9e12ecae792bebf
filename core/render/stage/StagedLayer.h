#pragma once

#include "core/render/plan/PlaybookClock.h"
#include "core/render/stage/Context.h"
#include "core/render/stage/LayerPicture.h"

namespace murbo::Stage {

/// A layer's picture at its place in the frame.
struct StagedLayer {
    Image image; ///< faded, cropped to the frame
    Blend blend = Blend::normal;
    bool hides = false;  ///< nothing of what lies below shows
    bool costly = false; ///< its pixels take more than to be copied

    /// `elapsed` is in seconds since the placement's start.
    static StagedLayer place(const LayerPicture& picture, const Context& context, const PlaybookClock& clock,
                             double elapsed);
};

}
