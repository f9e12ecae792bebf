#pragma once

#include "platform/base/Field.h"

#include <optional>
#include <tuple>

namespace murbo {

/// A rectangle in fractions of a picture, from its top left.
struct Box {
    double x = 0;
    double y = 0;
    double w = 0;
    double h = 0;

    bool operator==(const Box&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("x", &Box::x), field("y", &Box::y), field("w", &Box::w), field("h", &Box::h)};
    }
};
static_assert(Record<Box>);

/// A point in fractions of a picture, from its top left.
struct Spot {
    double x = 0;
    double y = 0;

    bool operator==(const Spot&) const = default;
    static constexpr auto fields() { return std::tuple{field("x", &Spot::x), field("y", &Spot::y)}; }
};
static_assert(Record<Spot>);

/// Where content and face lie in a source's picture. The defaults hold for a source that tells nothing.
struct Framing {
    Box content{0, 0, 1, 1};
    Box face{0.6, 0.44, 0.38, 0.56};
    double split = 0.5; ///< share of a split frame's height that the content gets
    std::optional<Spot> eyes;

    bool operator==(const Framing&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("content", &Framing::content), field("face", &Framing::face),
                          field("split", &Framing::split), field("eyes", &Framing::eyes)};
    }
};
static_assert(Record<Framing>);

}
