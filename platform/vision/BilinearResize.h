#pragma once

#include <cstddef>
#include <vector>

namespace murbo {

/// Resizing between the middles of pixels.
namespace BilinearResize {

/// Where one of the new pixels lies among the given ones.
struct SourcePair {
    std::ptrdiff_t before = 0;
    std::ptrdiff_t after = 0;
    float part = 0; ///< 0 is all of the one before, 1 all of the one after
};

/// The places of `to` pixels, or rows, among `from` that lie `step` apart.
std::vector<SourcePair> places(int from, int to, std::size_t step);

}

}
