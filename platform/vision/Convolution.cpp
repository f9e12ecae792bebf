#include "platform/vision/NetworkKernels.h"

// This file is compiled once for each instruction set; the order of what follows matters.
// clang-format off
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "platform/vision/Convolution.cpp"
#include <hwy/foreach_target.h>
#include <hwy/highway.h>
#include "platform/vision/NetworkVectors-inl.h"
// clang-format on

HWY_BEFORE_NAMESPACE();
namespace murbo::NetworkKernels::HWY_NAMESPACE {

/// Sums of `pixels` results side by side and `vectors` vectors of outputs each: enough to keep the adders
/// busy, few enough to stay in registers.
template <int pixels, int vectors, typename D>
HWY_INLINE void convolveBlock(D d, const ConvolutionWindow& window, const float* input, int firstOutput,
                              float* output) {
    const int lanes = int(hn::Lanes(d));
    const int length = window.columns * window.channels;
    hn::VFromD<D> sums[pixels][vectors];
    for (int v = 0; v < vectors; ++v)
        for (int p = 0; p < pixels; ++p) sums[p][v] = hn::LoadU(d, window.bias + firstOutput + v * lanes);
    for (int row = 0; row < window.rows; ++row) {
        const float* from = input + row * window.rowStep;
        const float* weights = window.weights + row * window.weightStep + firstOutput;
        for (int i = 0; i < length; ++i, weights += window.outputs) {
            hn::VFromD<D> weight[vectors];
            for (int v = 0; v < vectors; ++v) weight[v] = hn::LoadU(d, weights + v * lanes);
            for (int p = 0; p < pixels; ++p) {
                const auto number = hn::Set(d, from[p * window.pixelStep + i]);
                for (int v = 0; v < vectors; ++v)
                    sums[p][v] = hn::Add(sums[p][v], hn::Mul(number, weight[v]));
            }
        }
    }
    for (int p = 0; p < pixels; ++p)
        for (int v = 0; v < vectors; ++v)
            hn::StoreU(activated(d, sums[p][v], window.activation), d,
                       output + std::ptrdiff_t(p) * window.outputs + firstOutput + v * lanes);
}

template <int pixels>
HWY_INLINE void convolvePixels(const ConvolutionWindow& window, const float* input, float* output) {
    int at = 0;
    const auto run = [&](auto d, auto vectors) {
        const int step = vectors() * int(hn::Lanes(d));
        for (; at + step <= window.outputs; at += step)
            convolveBlock<pixels, vectors()>(d, window, input, at, output);
    };
    run(hn::CappedTag<float, 8>(), std::integral_constant<int, 2>());
    run(hn::CappedTag<float, 8>(), std::integral_constant<int, 1>());
    run(hn::CappedTag<float, 4>(), std::integral_constant<int, 1>());
    run(hn::CappedTag<float, 1>(), std::integral_constant<int, 1>());
}

void Convolve(const ConvolutionWindow& window, const float* input, int pixels, float* output) {
    constexpr int together = 4;
    int at = 0;
    for (; at + together <= pixels; at += together)
        convolvePixels<together>(window, input + at * window.pixelStep,
                                 output + std::ptrdiff_t(at) * window.outputs);
    for (; at < pixels; ++at)
        convolvePixels<1>(window, input + at * window.pixelStep,
                          output + std::ptrdiff_t(at) * window.outputs);
}

template <int pixels, typename D>
HWY_INLINE void depthwiseBlock(D d, const ConvolutionWindow& window, const float* input, float* output) {
    hn::VFromD<D> sums[pixels];
    for (int p = 0; p < pixels; ++p) sums[p] = hn::LoadU(d, window.bias);
    for (int row = 0; row < window.rows; ++row) {
        const float* from = input + row * window.rowStep;
        const float* weights = window.weights + row * window.weightStep;
        for (int column = 0; column < window.columns; ++column) {
            const auto weight = hn::LoadU(d, weights + std::ptrdiff_t(column) * window.channels);
            for (int p = 0; p < pixels; ++p) {
                const float* place = from + p * window.pixelStep + std::ptrdiff_t(column) * window.channels;
                sums[p] = hn::Add(sums[p], hn::Mul(hn::LoadU(d, place), weight));
            }
        }
    }
    for (int p = 0; p < pixels; ++p)
        hn::StoreU(activated(d, sums[p], window.activation), d, output + std::ptrdiff_t(p) * window.channels);
}

void ConvolveDepthwise(const ConvolutionWindow& window, const float* input, int pixels, float* output) {
    constexpr int together = 4;
    inLanes(std::size_t(window.channels), [&](auto d, std::size_t channel) {
        ConvolutionWindow part = window;
        part.weights += channel;
        part.bias += channel;
        const float* from = input + channel;
        float* to = output + channel;
        int at = 0;
        for (; at + together <= pixels; at += together)
            depthwiseBlock<together>(d, part, from + at * window.pixelStep,
                                     to + std::ptrdiff_t(at) * window.channels);
        for (; at < pixels; ++at)
            depthwiseBlock<1>(d, part, from + at * window.pixelStep,
                              to + std::ptrdiff_t(at) * window.channels);
    });
}

}
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
namespace murbo::NetworkKernels {

HWY_EXPORT(Convolve);
HWY_EXPORT(ConvolveDepthwise);

void convolve(const ConvolutionWindow& window, const float* input, int pixels, float* output) {
    HWY_DYNAMIC_DISPATCH(Convolve)(window, input, pixels, output);
}

void convolveDepthwise(const ConvolutionWindow& window, const float* input, int pixels, float* output) {
    HWY_DYNAMIC_DISPATCH(ConvolveDepthwise)(window, input, pixels, output);
}

}
#endif
