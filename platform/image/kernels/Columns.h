#pragma once

#include "platform/image/kernels/Taps.h"

#include <cstdint>
#include <vector>

namespace murbo::Kernels {

/// Taps along a row, laid out for the kernels.
struct Columns {
    /// Outputs that are made at once: eight samples, or two pixels of four values.
    struct alignas(64) Group {
        std::uint8_t bytes[16]; ///< where the bytes of the first samples lie from `first` on
        std::int16_t second[8]; ///< weights of the second samples
        std::int16_t third[8];
        std::int32_t first[2]; ///< a sample: the earliest of all, or the first of each of two pixels
    };

    Taps taps;
    int values = 1;            ///< a sample: 1, or 4 for pixels
    bool pairs = true;         ///< no third sample counts
    bool near = true;          ///< each group of samples lies within eight
    std::vector<Group> groups; ///< for sums of differences

    Columns() = default;
    /// `line` and the rest as for Taps; few samples an output are summed by differences, many by products.
    Columns(const Line& line, int from, int to, int lowest, int highest, int values);

    /// Outputs that a group makes.
    int together() const { return values == 1 ? 8 : 2; }

private:
    void addGroup(const Taps::Output* outputs, int count);
};

}
