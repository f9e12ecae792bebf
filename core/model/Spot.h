#pragma once

#include "platform/base/Field.h"

namespace murbo {

/// A point in fractions of a picture, from its top left.
struct Spot {
    double x = 0;
    double y = 0;

    bool operator==(const Spot&) const = default;
    static constexpr auto fields(auto visit) { return visit(field("x", &Spot::x), field("y", &Spot::y)); }
};

}
