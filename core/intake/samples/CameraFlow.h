#pragma once

#include "core/intake/samples/Luma.h"

#include <memory>
#include <optional>

namespace murbo {

/// How the camera moved from one picture to the next, read from the corners that are found again in it.
class CameraFlow {
public:
    /// What happened to the picture as a whole between two moments.
    struct Motion {
        double across = 0; ///< of its middle, in widths of the picture
        double down = 0;   ///< likewise, in widths too
        double zoom = 0;   ///< natural logarithm of the scale
        double roll = 0;   ///< radians, clockwise

        bool operator==(const Motion&) const = default;
    };

    CameraFlow();
    CameraFlow(CameraFlow&&) noexcept;
    CameraFlow& operator=(CameraFlow&&) noexcept;
    ~CameraFlow();

    /// The motion since the picture before. Nothing for the first picture, and where the two have too little
    /// in common: a cut, a hand before the lens. Two pictures that look the same have not moved, though
    /// there be no corners in them.
    std::optional<Motion> to(const Luma& luma);

private:
    struct Tracking;
    std::unique_ptr<Tracking> parts;
};

}
