#pragma once

namespace murbo {

/// In pixels.
struct Size {
    double width = 0;
    double height = 0;
    bool operator==(const Size&) const = default;
};

}
