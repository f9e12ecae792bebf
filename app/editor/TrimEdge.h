#pragma once

#include "platform/base/UUID.h"

namespace murbo {

/// The edge of a trim in progress, as the source player shows it.
struct TrimEdge {
    UUID source;
    double at = 0; ///< seconds on the source
    bool operator==(const TrimEdge&) const = default;
};

}
