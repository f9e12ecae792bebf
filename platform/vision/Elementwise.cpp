#include "platform/vision/NetworkKernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/vision/Elementwise.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/vision/NetworkVectors-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::NetworkKernels::HWY_NAMESPACE {

void AddValues(const float* one, const float* other, std::size_t count, Activation activation,
               float* output) {
    inLanes(count, [&](auto d, std::size_t at) {
        const auto sum = hn::Add(hn::LoadU(d, one + at), hn::LoadU(d, other + at));
        hn::StoreU(activated(d, sum, activation), d, output + at);
    });
}

void MultiplyValues(const float* one, const float* other, std::size_t count, Activation activation,
                    float* output) {
    inLanes(count, [&](auto d, std::size_t at) {
        const auto product = hn::Mul(hn::LoadU(d, one + at), hn::LoadU(d, other + at));
        hn::StoreU(activated(d, product, activation), d, output + at);
    });
}

void MultiplyByPixel(const float* input, const float* pixel, std::size_t pixels, int channels,
                     Activation activation, float* output) {
    for (std::size_t i = 0; i < pixels; ++i, input += channels, output += channels)
        inLanes(std::size_t(channels), [&](auto d, std::size_t at) {
            const auto product = hn::Mul(hn::LoadU(d, input + at), hn::LoadU(d, pixel + at));
            hn::StoreU(activated(d, product, activation), d, output + at);
        });
}

void AddPixels(const float* input, std::size_t pixels, int channels, float* sum) {
    inLanes(std::size_t(channels), [&](auto d, std::size_t channel) {
        auto total = hn::LoadU(d, sum + channel);
        for (std::size_t pixel = 0; pixel < pixels; ++pixel)
            total = hn::Add(total, hn::LoadU(d, input + pixel * std::size_t(channels) + channel));
        hn::StoreU(total, d, sum + channel);
    });
}

void Activate(const float* input, std::size_t count, Activation activation, float* output) {
    inLanes(count, [&](auto d, std::size_t at) {
        hn::StoreU(activated(d, hn::LoadU(d, input + at), activation), d, output + at);
    });
}

HWY_INLINE void lineBetween(const float* one, const float* other, float part, std::size_t count,
                            float* output) {
    inLanes(count, [&](auto d, std::size_t at) {
        const auto from = hn::LoadU(d, one + at);
        const auto way = hn::Sub(hn::LoadU(d, other + at), from);
        hn::StoreU(hn::Add(from, hn::Mul(way, hn::Set(d, part))), d, output + at);
    });
}

void BetweenRows(const float* one, const float* other, float part, std::size_t count, float* output) {
    lineBetween(one, other, part, count, output);
}

void BetweenPixels(const float* row, const BilinearResize::SourcePair* places, int pixels, int channels,
                   float* output) {
    for (int i = 0; i < pixels; ++i, output += channels)
        lineBetween(row + places[i].before, row + places[i].after, places[i].part, std::size_t(channels),
                    output);
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::NetworkKernels {

HWY_EXPORT(AddValues);
HWY_EXPORT(MultiplyValues);
HWY_EXPORT(MultiplyByPixel);
HWY_EXPORT(AddPixels);
HWY_EXPORT(Activate);
HWY_EXPORT(BetweenRows);
HWY_EXPORT(BetweenPixels);

void add(const float* one, const float* other, std::size_t count, Graph::Activation activation,
         float* output) {
    HWY_DYNAMIC_DISPATCH(AddValues)(one, other, count, activation, output);
}

void multiply(const float* one, const float* other, std::size_t count, Graph::Activation activation,
              float* output) {
    HWY_DYNAMIC_DISPATCH(MultiplyValues)(one, other, count, activation, output);
}

void multiplyByPixel(const float* input, const float* pixel, std::size_t pixels, int channels,
                     Graph::Activation activation, float* output) {
    HWY_DYNAMIC_DISPATCH(MultiplyByPixel)(input, pixel, pixels, channels, activation, output);
}

void addPixels(const float* input, std::size_t pixels, int channels, float* sum) {
    HWY_DYNAMIC_DISPATCH(AddPixels)(input, pixels, channels, sum);
}

void activate(const float* input, std::size_t count, Graph::Activation activation, float* output) {
    HWY_DYNAMIC_DISPATCH(Activate)(input, count, activation, output);
}

void between(const float* one, const float* other, float part, std::size_t count, float* output) {
    HWY_DYNAMIC_DISPATCH(BetweenRows)(one, other, part, count, output);
}

void betweenPixels(const float* row, const BilinearResize::SourcePair* places, int pixels, int channels,
                   float* output) {
    HWY_DYNAMIC_DISPATCH(BetweenPixels)(row, places, pixels, channels, output);
}

}
#endif
