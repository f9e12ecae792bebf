#include "platform/vision/GraphDraft.h"

#include "platform/base/Problem.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>

namespace murbo {

void refuse(const char* what) {
    throw Problem(std::string("The network can't be used: ") + what + ".");
}

void demand(bool held, const char* what) {
    if (!held) refuse(what);
}

namespace {

/// IEEE 754 binary16.
float fromHalf(std::uint16_t half) {
    demand((half & 0x7C00) != 0x7C00, "a weight is no number");
    // A shift puts exponent and fraction in their places; the factor mends the exponent, also of tiny ones.
    const float held = std::bit_cast<float>(std::uint32_t(half & 0x7FFF) << 13) * 0x1p112f;
    return half & 0x8000 ? -held : held;
}

template <typename T>
T element(std::string_view bytes, std::size_t index) {
    T result;
    std::memcpy(&result, bytes.data() + index * sizeof result, sizeof result);
    return result;
}

float finite(float number) {
    demand(std::isfinite(number), "a weight is no number");
    return number;
}

}

std::size_t GraphDraft::Tensor::numbers() const {
    std::size_t product = 1;
    for (const int side : sides) {
        demand(side > 0 && side <= maxSide, "a size is out of bounds");
        product *= std::size_t(side);
        demand(product <= maxNumbers, "a size is out of bounds");
    }
    return product;
}

GraphDraft::Tensor& GraphDraft::tensor(int index) {
    demand(index >= 0 && std::size_t(index) < tensors.size(), "a layer asks for what is not there");
    return tensors[std::size_t(index)];
}

int GraphDraft::newValue(Tensor& made) {
    demand(made.value < 0, "a value is made twice");
    const auto& sides = made.sides;
    demand(made.type == Tensor::float32 && sides.size() == 4 && sides[0] == 1, "a value is no picture");
    made.numbers();
    graph.values.push_back({sides[1], sides[2], sides[3]});
    return made.value = int(graph.values.size()) - 1;
}

int GraphDraft::knownValue(int index) {
    const int value = tensor(index).value;
    demand(value >= 0, "a value is used before it is made");
    return value;
}

std::vector<float> GraphDraft::floats(const Tensor& tensor) {
    const std::size_t count = tensor.numbers();
    const bool halves = tensor.type == Tensor::float16;
    demand(halves || tensor.type == Tensor::float32, "weights are of an unknown kind");
    demand(tensor.stored.size() == count * (halves ? 2 : 4), "weights are missing");
    constants += count;
    demand(constants <= maxNumbers, "it has too many weights");
    std::vector<float> result(count);
    for (std::size_t i = 0; i < count; ++i)
        result[i] = halves ? fromHalf(element<std::uint16_t>(tensor.stored, i))
                           : finite(element<float>(tensor.stored, i));
    return result;
}

std::vector<int> GraphDraft::integers(int index) {
    const Tensor& found = tensor(index);
    const std::size_t count = found.stored.size() / 4;
    demand(found.type == Tensor::int32 && count <= 8 && found.stored.size() == 4 * count,
           "a size is missing");
    std::vector<int> result;
    for (std::size_t i = 0; i < count; ++i) result.push_back(element<std::int32_t>(found.stored, i));
    return result;
}

}
