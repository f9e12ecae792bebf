#pragma once

#include "platform/base/Field.h"

namespace murbo {

/// A rectangle in fractions of a picture, from its top left.
struct Box {
    double x = 0;
    double y = 0;
    double w = 0;
    double h = 0;

    bool operator==(const Box&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("x", &Box::x), field("y", &Box::y), field("w", &Box::w), field("h", &Box::h));
    }
};

}
