#pragma once

#include <cstdint>
#include <vector>

namespace murbo {

namespace HoleFill {

/// Closes the holes of a coverage mask that are smaller than `area` pixels. An outline leaves such specks in
/// the counters of letters, where the picture below shows through as dirt.
void close(std::vector<std::uint8_t>& mask, int width, int height, double area);

}

}
