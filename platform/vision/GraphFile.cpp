#include "platform/vision/GraphFile.h"

#include "platform/base/Problem.h"
#include "platform/vision/FlatTable.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace murbo {

namespace {

using Shape = Graph::Shape;
using Layer = Graph::Layer;
using Kind = Graph::Layer::Kind;
using Activation = Graph::Activation;

// Some ten times what the networks in use need.
constexpr int mostEntries = 4096;              ///< tensors, layers, kinds, buffers
constexpr int mostSide = 4096;                 ///< of a value, and channels
constexpr std::size_t mostNumbers = 1 << 24;   ///< of one value, and of all constants together
constexpr std::size_t mostProducts = 1u << 31; ///< of one run

// Numbers of the schema.
enum Operator {
    opAdd = 0,
    opAveragePool = 1,
    opConvolution = 3,
    opDepthwise = 4,
    opDequantise = 6,
    opLogistic = 14,
    opMultiply = 18,
    opRelu = 19,
    opRelu6 = 21,
    opResize = 23,
    opCustom = 32,
    opMean = 40,
    opHardSwish = 117
};
enum Type { float32 = 0, float16 = 1, int32 = 2 };

[[noreturn]] void refuse(const char* what) {
    throw Problem(std::string("The network can't be used: ") + what + ".");
}

void demand(bool held, const char* what) {
    if (!held) refuse(what);
}

/// IEEE 754 binary16.
float fromHalf(std::uint16_t half) {
    demand((half & 0x7C00) != 0x7C00, "a weight is no number");
    // A shift puts exponent and fraction in their places; the factor mends the exponent, also of tiny ones.
    const float held = std::bit_cast<float>(std::uint32_t(half & 0x7FFF) << 13) * 0x1p112f;
    return half & 0x8000 ? -held : held;
}

struct Tensor {
    std::vector<int> sides;
    int type = float32;
    std::string_view stored; ///< its bytes, where it is a constant
    int value = -1;          ///< of the graph, once it has one
};

std::size_t numbersIn(const Tensor& tensor) {
    std::size_t product = 1;
    for (const int side : tensor.sides) {
        demand(side > 0 && side <= mostSide, "a size is out of bounds");
        product *= std::size_t(side);
        demand(product <= mostNumbers, "a size is out of bounds");
    }
    return product;
}

struct Reader {
    Graph graph;
    std::vector<Tensor> tensors;
    std::size_t constants = 0;
    std::size_t products = 0;

    Tensor& tensor(int index) {
        demand(index >= 0 && std::size_t(index) < tensors.size(), "a layer asks for what is not there");
        return tensors[std::size_t(index)];
    }

    static Shape shape(const Tensor& tensor) {
        const auto& sides = tensor.sides;
        demand(tensor.type == float32 && sides.size() == 4 && sides[0] == 1, "a value is no picture");
        numbersIn(tensor);
        return {sides[1], sides[2], sides[3]};
    }

    int newValue(Tensor& tensor) {
        demand(tensor.value < 0, "a value is made twice");
        graph.values.push_back(shape(tensor));
        return tensor.value = int(graph.values.size()) - 1;
    }

    int knownValue(int index) {
        const int value = tensor(index).value;
        demand(value >= 0, "a value is used before it is made");
        return value;
    }

    std::vector<float> floats(const Tensor& tensor) {
        const std::size_t count = numbersIn(tensor);
        const bool halves = tensor.type == float16;
        demand(halves || tensor.type == float32, "weights are of an unknown kind");
        demand(tensor.stored.size() == count * (halves ? 2 : 4), "weights are missing");
        constants += count;
        demand(constants <= mostNumbers, "it has too many weights");
        std::vector<float> result(count);
        for (std::size_t i = 0; i < count; ++i) {
            if (halves) {
                std::uint16_t half;
                std::memcpy(&half, tensor.stored.data() + 2 * i, 2);
                result[i] = fromHalf(half);
            } else {
                std::memcpy(&result[i], tensor.stored.data() + 4 * i, 4);
                demand(std::isfinite(result[i]), "a weight is no number");
            }
        }
        return result;
    }

    std::vector<int> integers(int index) {
        const Tensor& found = tensor(index);
        const std::size_t count = found.stored.size() / 4;
        demand(found.type == int32 && count >= 1 && count <= 8 && found.stored.size() == 4 * count,
               "a size is missing");
        std::vector<int> result(count);
        std::memcpy(result.data(), found.stored.data(), found.stored.size());
        return result;
    }
};

Activation fused(int code) {
    if (code == 0) return Activation::none;
    if (code == 1) return Activation::relu;
    if (code == 3) return Activation::relu6;
    refuse("it has an activation that is not known");
}

/// How many steps a window takes along a side, and how many zeros stand ahead so that they lie evenly.
struct Steps {
    int count = 0;
    int ahead = 0;
};
Steps steps(int side, int window, int stride, bool padded) {
    demand(stride >= 1 && stride <= mostSide && window <= mostSide, "a stride is out of bounds");
    if (!padded) {
        demand(side >= window, "a window is larger than its picture");
        return {(side - window) / stride + 1, 0};
    }
    const int count = (side + stride - 1) / stride;
    return {count, std::max((count - 1) * stride + window - side, 0) / 2};
}

struct Operation {
    int code = 0;
    std::string_view name; ///< of a custom one
    std::vector<int> inputs, outputs;
    std::optional<FlatTable> options;
    std::string_view custom;
    int option(int field, int otherwise = 0) const {
        return options ? options->number(field, otherwise) : otherwise;
    }
    int choice(int field) const { return options ? options->byte(field) : 0; }
};

/// A layer under way, with what its result must measure.
struct Draft {
    Layer layer;
    Shape shape;
};

Draft draft(Reader& reader, const Operation& operation, Kind kind, int inputs) {
    demand(operation.inputs.size() >= std::size_t(inputs) && operation.outputs.size() == 1,
           "a layer has the wrong inputs");
    Draft made;
    made.layer.kind = kind;
    for (int i = 0; i < inputs; ++i)
        made.layer.inputs.push_back(reader.knownValue(operation.inputs[std::size_t(i)]));
    made.shape = reader.graph.values[std::size_t(made.layer.inputs[0])];
    return made;
}

void readWeights(Reader& reader, const Operation& operation, Layer& layer, int outputs) {
    demand(operation.inputs.size() == 3, "a layer has the wrong inputs");
    layer.weights = reader.floats(reader.tensor(operation.inputs[1]));
    layer.bias = reader.floats(reader.tensor(operation.inputs[2]));
    demand(layer.bias.size() == std::size_t(outputs), "a layer has the wrong weights");
}

const std::vector<int>& windowSides(Reader& reader, const Operation& operation) {
    demand(operation.inputs.size() == 3, "a layer has the wrong inputs");
    const auto& sides = reader.tensor(operation.inputs[1]).sides;
    demand(sides.size() == 4, "a layer has the wrong weights");
    numbersIn(reader.tensor(operation.inputs[1]));
    return sides;
}

/// Windows that step over the picture: both kinds of convolution.
Draft windowed(Reader& reader, const Operation& operation, bool depthwise) {
    Draft made = draft(reader, operation, depthwise ? Kind::depthwise : Kind::convolution, 1);
    Layer& layer = made.layer;
    const auto sides = windowSides(reader, operation);
    const int dilation = depthwise ? 5 : 4;
    demand(operation.option(dilation, 1) == 1 && operation.option(dilation + 1, 1) == 1, "a window has gaps");
    demand(depthwise ? sides[0] == 1 && sides[3] == made.shape.channels && operation.option(3, 1) == 1
                     : sides[3] == made.shape.channels,
           "a layer has the wrong weights");
    layer.windowHigh = sides[1];
    layer.windowWide = sides[2];
    layer.strideAcross = operation.option(1, 1);
    layer.strideDown = operation.option(2, 1);
    layer.activation = fused(operation.choice(depthwise ? 4 : 3));
    const bool padded = operation.choice(0) == 0;
    const Steps down = steps(made.shape.height, layer.windowHigh, layer.strideDown, padded);
    const Steps across = steps(made.shape.width, layer.windowWide, layer.strideAcross, padded);
    layer.above = down.ahead;
    layer.before = across.ahead;
    made.shape = {down.count, across.count, depthwise ? sides[3] : sides[0]};
    readWeights(reader, operation, layer, made.shape.channels);
    reader.products += made.shape.pixels() * layer.weights.size();
    return made;
}

/// A transposed convolution whose windows don't overlap.
Draft enlarging(Reader& reader, const Operation& operation) {
    demand(operation.name == "Convolution2DTransposeBias" && operation.custom.size() >= 12,
           "it has a layer of an unknown kind");
    Draft made = draft(reader, operation, Kind::enlarging, 1);
    Layer& layer = made.layer;
    const auto sides = windowSides(reader, operation);
    int strides[2];
    std::memcpy(strides, operation.custom.data() + 4, sizeof strides);
    demand(sides[3] == made.shape.channels, "a layer has the wrong weights");
    demand(sides[1] == strides[1] && sides[2] == strides[0], "enlarged windows overlap");
    layer.windowHigh = layer.strideDown = sides[1];
    layer.windowWide = layer.strideAcross = sides[2];
    reader.products += made.shape.pixels() * numbersIn(reader.tensor(operation.inputs[1]));
    made.shape = {made.shape.height * sides[1], made.shape.width * sides[2], sides[0]};
    readWeights(reader, operation, layer, sides[0]);
    return made;
}

Draft pairwise(Reader& reader, const Operation& operation, Kind kind) {
    Draft made = draft(reader, operation, kind, 2);
    Layer& layer = made.layer;
    const auto shape = [&](int input) { return reader.graph.values[std::size_t(layer.inputs[input])]; };
    // One pixel for all stands second.
    if (kind == Kind::multiply && shape(0).pixels() == 1) std::swap(layer.inputs[0], layer.inputs[1]);
    made.shape = shape(0);
    const Shape onePixel{1, 1, made.shape.channels};
    demand(shape(1) == made.shape || (kind == Kind::multiply && shape(1) == onePixel),
           "values of different sizes meet");
    layer.activation = fused(operation.choice(0));
    return made;
}

Draft mean(Reader& reader, const Operation& operation) {
    Draft made = draft(reader, operation, Kind::mean, 1);
    if (operation.code == opAveragePool) {
        const bool whole =
            operation.option(3) == made.shape.width && operation.option(4) == made.shape.height &&
            (operation.choice(0) == 1 ||
             (operation.option(1) >= made.shape.width && operation.option(2) >= made.shape.height));
        demand(whole, "a mean is not of the whole picture");
        made.layer.activation = fused(operation.choice(5));
    } else {
        demand(operation.inputs.size() == 2, "a layer has the wrong inputs");
        auto sides = reader.integers(operation.inputs[1]);
        std::sort(sides.begin(), sides.end());
        demand(sides == std::vector{1, 2}, "a mean is not of the whole picture");
    }
    made.shape = {1, 1, made.shape.channels};
    return made;
}

Draft resize(Reader& reader, const Operation& operation) {
    Draft made = draft(reader, operation, Kind::resize, 1);
    demand(operation.inputs.size() == 2, "a layer has the wrong inputs");
    const auto sides = reader.integers(operation.inputs[1]);
    demand(sides.size() == 2, "a size is missing");
    demand(operation.choice(2) == 0 && operation.choice(3) == 1, "a picture is resized in an unknown way");
    made.shape.height = sides[0];
    made.shape.width = sides[1];
    return made;
}

Draft activation(Reader& reader, const Operation& operation, Activation kind) {
    Draft made = draft(reader, operation, Kind::activate, 1);
    made.layer.activation = kind;
    return made;
}

Draft draft(Reader& reader, const Operation& operation) {
    switch (operation.code) {
        case opConvolution:
            return windowed(reader, operation, false);
        case opDepthwise:
            return windowed(reader, operation, true);
        case opCustom:
            return enlarging(reader, operation);
        case opAdd:
            return pairwise(reader, operation, Kind::add);
        case opMultiply:
            return pairwise(reader, operation, Kind::multiply);
        case opAveragePool:
        case opMean:
            return mean(reader, operation);
        case opResize:
            return resize(reader, operation);
        case opRelu:
            return activation(reader, operation, Activation::relu);
        case opRelu6:
            return activation(reader, operation, Activation::relu6);
        case opHardSwish:
            return activation(reader, operation, Activation::hardSwish);
        case opLogistic:
            return activation(reader, operation, Activation::logistic);
        default:
            refuse("it has a layer of an unknown kind");
    }
}

/// Weights of 16 bits stand in the file with a layer that widens them; here they are widened as they are
/// read.
void dequantise(Reader& reader, const Operation& operation) {
    demand(operation.inputs.size() == 1 && operation.outputs.size() == 1, "a layer has the wrong inputs");
    const Tensor& narrow = reader.tensor(operation.inputs[0]);
    Tensor& wide = reader.tensor(operation.outputs[0]);
    demand(narrow.type == float16 && wide.value < 0 && wide.sides == narrow.sides,
           "weights are of an unknown kind");
    wide.type = float16;
    wide.stored = narrow.stored;
}

void add(Reader& reader, const Operation& operation) {
    if (operation.code == opDequantise) return dequantise(reader, operation);
    Draft made = draft(reader, operation);
    made.layer.output = reader.newValue(reader.tensor(operation.outputs[0]));
    demand(made.shape == reader.graph.values.back(), "a layer's result has the wrong size");
    reader.products += made.shape.size();
    demand(reader.products <= mostProducts, "it asks for too much work");
    reader.graph.layers.push_back(std::move(made.layer));
}

std::vector<Tensor> readTensors(const FlatTable& file, const FlatTable& graph) {
    const auto buffers = file.tables(4, mostEntries);
    std::vector<Tensor> result;
    for (const FlatTable& table : graph.tables(0, mostEntries)) {
        const auto buffer = std::size_t(table.number(2));
        demand(buffer < buffers.size(), "a value has no place");
        result.push_back({table.numbers(0, 8), table.byte(1), buffers[buffer].bytes(0)});
    }
    return result;
}

std::vector<Operation> readOperations(const FlatTable& file, const FlatTable& graph) {
    const auto codes = file.tables(1, mostEntries);
    std::vector<Operation> result;
    for (const FlatTable& table : graph.tables(3, mostEntries)) {
        const auto code = std::size_t(table.number(0));
        demand(code < codes.size(), "it has a layer of an unknown kind");
        // Files of old have the kind in a byte, new ones in a number as well.
        result.push_back({std::max(codes[code].byte(0), codes[code].number(3)), codes[code].bytes(1),
                          table.numbers(1, 8), table.numbers(2, 8), table.table(4), table.bytes(5)});
    }
    return result;
}

int only(const std::vector<int>& list) {
    demand(list.size() == 1, "it does not turn one picture into one");
    return list[0];
}

}

Graph GraphFile::read(std::string_view bytes) {
    demand(bytes.size() >= 8 && bytes.size() <= mostBytes && bytes.substr(4, 4) == "TFL3",
           "it is no TFLite file");
    const FlatTable file = FlatTable::root(bytes);
    const auto graphs = file.tables(2, 1);
    demand(graphs.size() == 1, "it holds no network");

    Reader reader;
    reader.tensors = readTensors(file, graphs[0]);
    reader.graph.input = reader.newValue(reader.tensor(only(graphs[0].numbers(1, 1))));
    for (const Operation& operation : readOperations(file, graphs[0])) add(reader, operation);
    reader.graph.output = reader.knownValue(only(graphs[0].numbers(2, 1)));
    return std::move(reader.graph);
}

}
