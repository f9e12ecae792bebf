#pragma once

#include <cstdint>
#include <vector>

namespace murbo {

namespace Specks {

/// Closes the holes of a coverage mask that are smaller than `area` pixels. An outline leaves such specks in
/// the counters of letters, where the picture behind shines through as dirt.
void close(std::vector<std::uint8_t>& mask, int width, int height, double area);

}

}
