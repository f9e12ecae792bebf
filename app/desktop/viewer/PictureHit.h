#pragma once

#include "app/editor/Pick.h"
#include "core/render/plan/Plan.h"

#include <QPointF>
#include <optional>

namespace murbo {

class PlaybookMedia;

/// What lies under a point of a video's picture. Takes tens of milliseconds for each thing; any thread.
namespace PictureHit {

struct HitOrder {
    Plan plan;
    double time = 0; ///< video seconds
    QPointF at;      ///< in pixels of the frame
};

/// The topmost overlay or caption there; nothing where there is footage alone.
std::optional<Pick> topmost(const HitOrder& order, PlaybookMedia& media);

}

}
