#pragma once

#include "platform/vision/BilinearResize.h"
#include "platform/vision/Graph.h"

#include <cstddef>

namespace murbo::NetworkKernels {

/// The inner loops of a network. Each number of a result is summed in one fixed order, products rounded
/// before they are added, so that every instruction set gives the same bits.

/// A window over a picture, in floats. Where the window hangs over the picture's edge, only what lies inside
/// is given.
struct ConvolutionWindow {
    int rows = 1;
    int columns = 1;
    int channels = 0;             ///< of a pixel of the input
    std::ptrdiff_t rowStep = 0;   ///< from one row of the input to the next
    std::ptrdiff_t pixelStep = 0; ///< from one result's window to the next's
    const float* weights = nullptr;
    std::ptrdiff_t weightStep = 0; ///< from one row of the window to the next
    const float* bias = nullptr;
    int outputs = 0; ///< channels of the result
    Graph::Activation activation = Graph::Activation::none;
};

/// `pixels` results in a row. The weights of one input channel lie side by side, one for each output.
void convolve(const ConvolutionWindow& window, const float* input, int pixels, float* output);
/// The same where each channel has a window of its own; the weights lie as the window's pixels do.
void convolveDepthwise(const ConvolutionWindow& window, const float* input, int pixels, float* output);

void add(const float* one, const float* other, std::size_t count, Graph::Activation activation,
         float* output);
void multiply(const float* one, const float* other, std::size_t count, Graph::Activation activation,
              float* output);
/// Each pixel by the same one.
void multiplyByPixel(const float* input, const float* pixel, std::size_t pixels, int channels,
                     Graph::Activation activation, float* output);
/// `sum` gets `pixels` pixels added.
void addPixels(const float* input, std::size_t pixels, int channels, float* sum);
void activate(const float* input, std::size_t count, Graph::Activation activation, float* output);
/// one + (other - one) · part
void between(const float* one, const float* other, float part, std::size_t count, float* output);

/// The same for each pixel of a row.
void betweenPixels(const float* row, const BilinearResize::SourcePair* places, int pixels, int channels,
                   float* output);

}
