#pragma once

#include "core/model/Box.h"
#include "core/model/Spot.h"
#include "platform/base/Field.h"

#include <optional>

namespace murbo {

/// Where content and face lie in a source's picture. The defaults hold for a source that says nothing.
struct Framing {
    Box content{0, 0, 1, 1};
    Box face{0.6, 0.44, 0.38, 0.56};
    double split = 0.5; ///< share of a split frame's height that the content gets
    std::optional<Spot> eyes;

    bool operator==(const Framing&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("content", &Framing::content), field("face", &Framing::face),
                     field("split", &Framing::split), field("eyes", &Framing::eyes));
    }
};

}
