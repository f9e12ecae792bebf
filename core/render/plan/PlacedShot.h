#pragma once

#include "core/model/Cut.h"
#include "core/model/Shot.h"
#include "platform/base/Shared.h"

#include <vector>

namespace murbo {

/// A shot on the video's own clock.
struct PlacedShot {
    double start = 0; ///< video seconds
    double end = 0;
    Shot shot;
    bool implicit = false; ///< put at the head of the video where no shot stands

    /// The shots as the cuts show them: in time order, without overlap, covering the video.
    static std::vector<PlacedShot> place(const List<Shot>& shots, const List<Cut>& cuts);

    /// The shot with its focus where its camera move has brought it at a video time.
    Shot moved(double time) const;
    /// The zoom that its camera move has reached at a video time.
    double zoom(double time) const;
    /// What a shake adds at a video time to the y of every panel's part of the picture, in pixels of the
    /// picture; 0 for any other move.
    double jolt(double time) const;
};

}
