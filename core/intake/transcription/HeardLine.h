#pragma once

#include <string>

namespace murbo {

/// A line that an engine heard, in seconds from the start of the sound that it was given.
struct HeardLine {
    double start = 0;
    double end = 0;
    std::string text;

    bool operator==(const HeardLine&) const = default;
};

}
