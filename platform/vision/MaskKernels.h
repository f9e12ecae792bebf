#pragma once

#include <cstdint>

namespace murbo::MaskKernels {

/// What of a mask's raw value of 0…1 is kept: nothing up to `none`, all from `all` on, an S between.
struct Curve {
    float none = 0;
    float all = 1;
};

/// A row of a mask, white at its alpha. `factors` has four numbers for each pixel: what to multiply its blue,
/// green and red bytes by, and what to add. The same bits on every instruction set.
void maskRow(const float* factors, const std::uint8_t* pixels, int count, Curve curve, std::uint8_t* output);

}
