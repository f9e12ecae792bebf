#pragma once

#include "core/intake/samples/CameraFlow.h"
#include "core/intake/samples/Samples.h"

#include <deque>

namespace murbo {

/// Where the camera went, and what that says of a moment: how it moves on the whole, and how much it shakes
/// about that. Only what lies round the moments still asked for is kept.
class CameraPath {
public:
    /// What is looked at on either side of a moment, in seconds: a swaying step is shake, a pan is not.
    static constexpr double reach = 0.4;

    struct CameraMoment {
        std::uint8_t steadiness = 0; ///< 255 for a camera on its stand
        Samples::Move move = Samples::Move::still;
    };

    /// Adds a picture, each later than the one before; nothing as motion where it does not follow from that.
    void add(double time, const std::optional<CameraFlow::Motion>& motion);

    /// What a moment is like. Pictures up to `time + reach` must have been added, where there are any.
    CameraMoment at(double time) const;

    /// From here on nothing before this time is asked for.
    void forgetBefore(double time);

private:
    struct CameraPlace {
        double time = 0;
        CameraFlow::Motion sum; ///< all motions since the shot's beginning
        int shot = 0;
    };

    std::vector<CameraPlace> round(double time) const;
    double lostShare(double time) const;

    std::deque<CameraPlace> places;
};

}
