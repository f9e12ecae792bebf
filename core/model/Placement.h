#pragma once

#include "platform/base/Field.h"

#include <optional>

namespace murbo {

/// Where a caption or an overlay stands: its middle in fractions of the frame from the top left, its size
/// factor, its turn in degrees clockwise. What is absent stays at rest (0.5, 0.5, 1, 0).
struct Placement {
    std::optional<double> x;
    std::optional<double> y;
    std::optional<double> scale;
    std::optional<double> rotation;

    bool operator==(const Placement&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("x", &Placement::x), field("y", &Placement::y), field("scale", &Placement::scale),
                     field("rotation", &Placement::rotation));
    }
};

}
