#pragma once

#include "platform/image/kernels/Kernels.h"
#include "tests/image/Targets.h"
#include "tests/image/Twins.h"

#include <random>

/// Rows to try kernels on.
namespace murbo::Rows {

/// Widths round which each size of vector has its tails.
inline const int widths[] = {1, 2, 3, 5, 7, 8, 9, 15, 16, 17, 31, 33, 63, 64, 65, 127, 130, 333};

template <typename T>
std::vector<T> random(std::size_t count, int low, int high, unsigned seed = 1) {
    std::mt19937 generator(seed);
    std::vector<T> values(count);
    for (auto& value : values) value = T(low + int(generator() % unsigned(high - low + 1)));
    return values;
}

inline std::vector<std::uint8_t> bytes(std::size_t count, unsigned seed = 1) {
    return random<std::uint8_t>(count, 0, 255, seed);
}

/// Premultiplied pixels with many clear and many opaque ones.
inline std::vector<std::uint8_t> pixels(int count, unsigned seed = 1) {
    auto result = bytes(std::size_t(count) * 4, seed);
    for (int at = 0; at < count; ++at) {
        auto* pixel = &result[std::size_t(at) * 4];
        if (at / 16 % 3 == 0) pixel[3] = 255;
        if (at / 16 % 3 == 1) pixel[3] = 0;
        for (int channel = 0; channel < 3; ++channel)
            pixel[channel] = std::uint8_t(pixel[channel] * pixel[3] / 255);
    }
    return result;
}

}
