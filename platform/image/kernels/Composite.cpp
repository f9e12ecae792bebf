#include "platform/image/kernels/Kernels.h"

#include <algorithm>
#include <cstring>

namespace murbo::Kernels {
namespace {

int times(int value, int alpha) {
    const int product = value * alpha + 128;
    return (product + (product >> 8)) >> 8;
}

void overPixel(const std::uint8_t* above, std::uint8_t* pixel) {
    for (int channel = 0; channel < 4; ++channel)
        pixel[channel] = std::uint8_t(std::min(above[channel] + times(pixel[channel], 255 - above[3]), 255));
}

}

void multiplyAlpha(const std::int16_t* alpha, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count; ++at) {
        pixels[at * 4 + 3] = std::uint8_t(std::clamp((alpha[at] + 64) >> 7, 0, 255));
    }
    premultiply(pixels, count);
}

void premultiply(std::uint8_t* pixels, int count) {
    for (int at = 0; at < count; ++at) {
        for (int channel = 0; channel < 3; ++channel)
            pixels[at * 4 + channel] = std::uint8_t(times(pixels[at * 4 + channel], pixels[at * 4 + 3]));
    }
}

void fill(std::uint32_t pixel, int count, std::uint8_t* out) {
    for (int at = 0; at < count; ++at) std::memcpy(out + at * 4, &pixel, 4);
}

void over(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count; ++at) overPixel(above + at * 4, pixels + at * 4);
}

void over(std::uint32_t above, int count, std::uint8_t* pixels) {
    std::uint8_t channels[4];
    std::memcpy(channels, &above, 4);
    for (int at = 0; at < count; ++at) overPixel(channels, pixels + at * 4);
}

void fade(int opacity, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count * 4; ++at) pixels[at] = std::uint8_t(times(pixels[at], opacity));
}

void average(const std::uint8_t* others, int count, int up, std::uint8_t* pixels) {
    for (int at = 0; at < count * 4; ++at) pixels[at] = std::uint8_t((pixels[at] + others[at] + up) >> 1);
}

void transpose(const std::uint8_t* in, std::ptrdiff_t inStride, int width, int height, std::uint8_t* out,
               std::ptrdiff_t outStride) {
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            std::memcpy(out + x * outStride + y * 4, in + y * inStride + x * 4, 4);
    }
}

}
