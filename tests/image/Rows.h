#pragma once

#include "platform/image/kernels/Kernels.h"
#include "tests/image/Targets.h"

#include <random>

/// Rows to try kernels on.
namespace murbo::Rows {

/// Widths round which each size of vector has its tails.
inline constexpr int widths[] = {1, 2, 3, 5, 7, 8, 9, 15, 16, 17, 31, 33, 63, 64, 65, 127, 130, 333};
inline constexpr int longest = 333;

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

/// A product in 1/255, in 1/2^15 and a level, rounded as kernels round them.
inline int share(int value, int alpha) {
    return (value * alpha + 127) / 255;
}
inline int part(int value, int share) {
    return (value * share + 0x4000) >> 15;
}
inline int byte(int value) {
    return std::clamp(value, 0, 255);
}

/// Holds each value that a kernel writes against a formula, on each instruction set and in rows of every
/// width; what lies past a row's end must stay.
template <typename T, typename Kernel, typename Formula>
void expectRows(const std::vector<T>& before, int valuesAPixel, const Kernel& kernel, const Formula& formula,
                const std::string& what) {
    onEachTarget([&](const char* name) {
        for (const int width : widths) {
            auto found = before;
            kernel(width, found.data());
            int at = 0;
            for (const int end = width * valuesAPixel; at < int(found.size()); ++at)
                if (found[at] != (at < end ? T(formula(at)) : before[at])) break;
            EXPECT_EQ(at, int(found.size())) << what << " of " << width << " on " << name;
        }
    });
}

/// The same where each width and instruction set gives but the beginning of the longest row.
template <typename T, typename Kernel>
void expectAlike(const std::vector<T>& before, int valuesAPixel, const Kernel& kernel,
                 const std::string& what) {
    auto whole = before;
    kernel(longest, whole.data());
    expectRows(
        before, valuesAPixel, kernel, [&](int at) { return whole[at]; }, what);
}

}
