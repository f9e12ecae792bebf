#pragma once

namespace murbo {

/// A stretch of time in seconds, both ends included.
struct Stretch {
    double from = 0;
    double to = 0;

    double length() const { return to - from; }
    bool operator==(const Stretch&) const = default;
};

}
