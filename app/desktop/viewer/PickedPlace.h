#pragma once

#include "app/desktop/viewer/PictureBox.h"
#include "app/editor/Pick.h"
#include "core/render/captions/CaptionPicture.h"
#include "core/render/plan/Plan.h"

#include <optional>

namespace murbo {

class PlaybookMedia;

/// Where what is picked lies on the picture by itself: drawn and measured. Takes tens of milliseconds; any
/// thread.
namespace PickedPlace {

struct Measured {
    QRectF natural;     ///< about its pivot, in pixels of the frame, neither scaled nor turned
    double restY = 0.5; ///< where it stands while its move does not say, a share of the height

    bool operator==(const Measured&) const = default;
};

/// What a measure needs, apart from the project.
struct MeasureOrder {
    Plan plan;
    Pick pick;
    double time = 0; ///< video seconds at which it is looked at
};

/// Nothing for a pick that is not on the picture.
std::optional<Measured> measure(const MeasureOrder& order, PlaybookMedia& media);

/// Whether what is picked shows anything at a point of the frame, in pixels: within its box, and where that
/// fills much of the frame only where it is not clear.
bool shows(const MeasureOrder& order, const QPointF& point, PlaybookMedia& media);

/// What a caption's picture is made of, all its words shown.
CaptionPicture::Request picture(const CaptionCue& cue, const Plan& plan);

/// The overlay of a pick, or null.
const PlacedOverlay* overlayOf(const Plan& plan, const Pick& pick);
/// The caption of a pick: that at the time where the line has several; or null.
const CaptionCue* cueOf(const Plan& plan, const Pick& pick, double time);

/// The move that places it, and how far that has come at a time; nothing where it is not on then.
struct Placed {
    Move move;
    double share = 0;
};
std::optional<Placed> placed(const Plan& plan, const Pick& pick, double time);

/// The box of what was measured, under a move that has come so far.
PictureBox box(const Measured& measured, const Placed& placed, const Size& frame);

}

}
