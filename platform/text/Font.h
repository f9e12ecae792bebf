#pragma once

#include <string>
#include <vector>

namespace murbo {

/// What a text is set in. Each letter comes from the first of `families` that has it; whatever they lack
/// comes from the rounded face, and last from any font of the system.
struct Font {
    std::vector<std::string> families;
    int weight = 700; ///< 100 (hairline) to 1000 (as black as it gets); the nearest face there is
    double size = 84; ///< pixels to the em
    bool operator==(const Font&) const = default;
};

}
