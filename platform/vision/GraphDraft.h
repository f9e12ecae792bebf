#pragma once

#include "platform/vision/Graph.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace murbo {

/// A graph while it is read from a file that is not trusted, with the file's tensors: its values and its
/// constants. What can't be throws Problem.
struct GraphDraft {
    static constexpr int maxSide = 4096;                ///< of a value, and channels
    static constexpr std::size_t maxNumbers = 1u << 24; ///< of one value, and of all constants together

    struct Tensor {
        enum TensorType { float32 = 0, float16 = 1, int32 = 2 };
        std::vector<int> sides;
        int type = float32;
        std::string_view stored; ///< its bytes, where it is a constant
        int value = -1;          ///< of the graph, once it has one

        /// How many; throws where a side is out of bounds, or they are too many.
        std::size_t numbers() const;
    };

    Graph graph;
    std::vector<Tensor> tensors;
    std::size_t products = 0; ///< of one run, as far as it is read

    Tensor& tensor(int index);
    /// A new value of the graph, as large as the tensor.
    int newValue(Tensor& tensor);
    /// The value that a layer before made.
    int knownValue(int tensor);
    /// Constants, those of 16 bits widened.
    std::vector<float> floats(const Tensor& tensor);
    /// Up to eight whole numbers.
    std::vector<int> integers(int tensor);

private:
    std::size_t constants = 0;
};

/// Throws the Problem that the network can't be used, where `held` is false.
void demand(bool held, const char* what);
[[noreturn]] void refuse(const char* what);

}
