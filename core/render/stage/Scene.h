#pragma once

#include "core/render/plan/Plan.h"
#include "core/render/stage/Budget.h"
#include "core/render/stage/PlaybookMedia.h"
#include "platform/image/Image.h"

#include <optional>

namespace murbo::Stage {

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

}
