#pragma once

#include "core/render/plan/Plan.h"
#include "core/render/plan/StageValue.h"
#include "core/render/stage/Budget.h"
#include "core/render/stage/PlaybookMedia.h"
#include "platform/image/Image.h"

#include <optional>

namespace murbo {

/// Draws placed playbooks. Keeps nothing: what a frame shows depends on the arguments alone, so frames may be
/// drawn in any order. Never throws: what can't be drawn is left out.
namespace Stage {

/// What a frame gives a playbook to work with.
struct Scene {
    Image below;                 ///< the picture so far, the frame's size: what the slot "under" shows
    std::optional<Image> source; ///< the footage's picture of this moment, unframed
    Framing framing;             ///< where content and face lie in it
    const Plan& plan;
    PlaybookMedia& media;
    Budget* budget = nullptr; ///< of the frame; without one each playbook has one of its own
    double enlarged = 1;      ///< how many times as large all that is drawn will be shown, at most
};

/// The playbook at a video time, laid over `canvas`; cropped to the frame.
Image draw(const PlacedOverlay& placed, double time, const Scene& scene, const Image& canvas);

/// Whether a layer that is on at that time shows what lies below. Who lays the playbook over that picture by
/// himself, not on it as the canvas, shows it twice and does well to keep it (`Image::drawnOnce`).
bool showsBelow(const PlacedOverlay& placed, double time, const Scene& scene);

}

}
