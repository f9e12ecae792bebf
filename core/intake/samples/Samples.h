#pragma once

#include "platform/base/Field.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace murbo {

/// What a source's picture is like over time. All measures run from 0 to 255, higher is better.
struct Samples {
    enum class Move { still, pan, tilt, zoom, roll, mixed };

    double rate = 4; ///< samples a second
    std::vector<std::int64_t> sharpness;
    std::vector<std::int64_t> exposure;
    std::vector<std::int64_t> steadiness;
    std::vector<Move> moves; ///< the camera's

    /// The length of the shortest list: moments that have every measure.
    std::size_t count() const;

    bool operator==(const Samples&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("rate", &Samples::rate), field("sharpness", &Samples::sharpness),
                     field("exposure", &Samples::exposure), field("steadiness", &Samples::steadiness),
                     field("moves", &Samples::moves));
    }
};
constexpr auto rawTexts(Samples::Move) {
    return std::array<std::string_view, 6>{"still", "pan", "tilt", "zoom", "roll", "mixed"};
}

}
