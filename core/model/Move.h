#pragma once

#include "platform/base/Field.h"

#include <optional>
#include <string>
#include <tuple>

namespace murbo {

/// Where a caption or an overlay stands: its middle in fractions of the frame from the top left, its size
/// factor, its turn in degrees clockwise. What is absent stays at rest (0.5, 0.5, 1, 0).
struct Placement {
    std::optional<double> x;
    std::optional<double> y;
    std::optional<double> scale;
    std::optional<double> rotation;

    bool operator==(const Placement&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("x", &Placement::x), field("y", &Placement::y),
                          field("scale", &Placement::scale), field("rotation", &Placement::rotation)};
    }
};
static_assert(Record<Placement>);

/// A way from one placement to another over the thing's time on screen, with its entrance and exit by name.
struct Move {
    std::optional<Placement> from;
    std::optional<Placement> to;
    std::optional<std::string> ease;
    std::optional<std::string> enter;
    std::optional<std::string> exit;

    bool operator==(const Move&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("from", &Move::from), field("to", &Move::to), field("ease", &Move::ease),
                          field("enter", &Move::enter), field("exit", &Move::exit)};
    }
};
static_assert(Record<Move>);

}
