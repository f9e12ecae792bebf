#pragma once

#include <cstddef>
#include <vector>

namespace murbo {

/// A neural network for pictures, as its file describes it: layers in the order in which they run, each
/// turning values into a new one.
struct Graph {
    /// Rows, columns and channels of a value, in which channels lie closest together, then columns.
    struct Shape {
        int height = 0;
        int width = 0;
        int channels = 0;
        std::size_t pixels() const { return std::size_t(height) * width; }
        std::size_t size() const { return pixels() * channels; }
        bool operator==(const Shape&) const = default;
    };

    /// What a layer does to each number of its result, last.
    enum class Activation {
        none,
        relu,      ///< max(x, 0)
        relu6,     ///< x held to 0…6
        hardSwish, ///< x · relu6(x + 3) / 6 (Howard et al., "Searching for MobileNetV3", 2019)
        logistic   ///< 1 / (1 + e^-x)
    };

    struct Layer {
        enum class Kind {
            convolution, ///< each output channel sums a window of all input channels
            depthwise,   ///< each channel sums a window of its own
            enlarging,   ///< each pixel becomes a window of pixels, side by side
            add,         ///< two values of one shape
            multiply,    ///< a value by another of its shape, or by one pixel for all
            mean,        ///< of all pixels: one pixel
            resize,      ///< bilinear between pixel middles
            activate     ///< only the activation
        };

        Kind kind = Kind::activate;
        std::vector<int> inputs; ///< one value, or two
        int output = 0;
        Activation activation = Activation::none;

        // Of the first three kinds.
        int windowHigh = 1, windowWide = 1;
        int strideDown = 1, strideAcross = 1;
        int above = 0, before = 0;  ///< rows and columns of zeros ahead of the picture
        std::vector<float> weights; ///< by output channel, then row, column and input channel of the window
        std::vector<float> bias;    ///< one for each output channel
    };

    std::vector<Shape> values;
    std::vector<Layer> layers;
    int input = 0;  ///< the value that is given
    int output = 0; ///< the value that is asked for

    /// How often each value is read, being the graph's output included.
    std::vector<int> uses() const;

    /// Makes it the same network with less to do; its results differ by rounding alone.
    void simplify();
};

}
