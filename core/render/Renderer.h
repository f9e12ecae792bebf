#pragma once

#include "core/render/captions/CaptionCache.h"
#include "core/render/plan/Crop.h"
#include "core/render/plan/Plan.h"
#include "core/render/stage/PlaybookMedia.h"
#include "platform/image/Image.h"

#include <optional>
#include <string_view>

namespace murbo {

/// One moment of a plan as one finished picture. What comes out depends on the plan, the moment and the
/// footage alone, so that preview, stills and export agree and frames may be drawn in any order on any
/// threads; `captions` and `media` only keep what has been made from one frame to the next.
namespace Renderer {

/// How long every transition lasts, in seconds. It is laid on the incoming shot alone.
inline constexpr double transitionLength = 0.3;

/// The picture of the plan at a video time, the frame's size, on black. `picture` is what the source shows at
/// this moment and `source` whose it is; both are absent where there is no footage to show.
Image render(const std::optional<Image>& picture, const std::optional<UUID>& source, const Plan& plan,
             double time, CaptionCache& captions, PlaybookMedia& media);

/// The panel's part of a picture, put in its place. Beyond the picture's edge its edge pixels go on.
Image draw(const Image& picture, const Panel& panel);

/// A frame in the transition of that name at `progress` (clamped to 0…1, where 0 is the cut). A name that is
/// no `Transition` changes nothing.
Image transitionIn(std::string_view name, const Image& image, double progress, Size frame);

/// The caption in its place at a video time; nothing where it can't be drawn.
std::optional<Image> caption(const CaptionCue& cue, double time, const Shot& shot, const Framing& framing,
                             const Plan& plan, CaptionCache& captions);

}

}
