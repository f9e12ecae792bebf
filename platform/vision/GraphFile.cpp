#include "platform/vision/GraphFile.h"

#include "platform/base/Problem.h"
#include "platform/vision/FlatTable.h"
#include "platform/vision/GraphDraft.h"

#include <algorithm>
#include <cstring>
#include <optional>

namespace murbo {

namespace {

using Shape = Graph::Shape;
using Tensor = GraphDraft::Tensor;
using Layer = Graph::Layer;
using Kind = Graph::Layer::Kind;
using Activation = Graph::Activation;

// Some ten times what the networks in use need.
constexpr int maxEntries = 4096;              ///< tensors, layers, kinds, buffers
constexpr std::size_t maxProducts = 1u << 31; ///< of one run

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
    demand(stride >= 1 && stride <= GraphDraft::maxSide && window <= GraphDraft::maxSide,
           "a stride is out of bounds");
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
struct NewLayer {
    Layer layer;
    Shape shape;
};

NewLayer begun(GraphDraft& draft, const Operation& operation, Kind kind, int inputs) {
    demand(operation.inputs.size() >= std::size_t(inputs) && operation.outputs.size() == 1,
           "a layer has the wrong inputs");
    NewLayer made;
    made.layer.kind = kind;
    for (int i = 0; i < inputs; ++i)
        made.layer.inputs.push_back(draft.knownValue(operation.inputs[std::size_t(i)]));
    made.shape = draft.graph.values[std::size_t(made.layer.inputs[0])];
    return made;
}

void readWeights(GraphDraft& draft, const Operation& operation, Layer& layer, int outputs) {
    demand(operation.inputs.size() == 3, "a layer has the wrong inputs");
    layer.weights = draft.floats(draft.tensor(operation.inputs[1]));
    layer.bias = draft.floats(draft.tensor(operation.inputs[2]));
    demand(layer.bias.size() == std::size_t(outputs), "a layer has the wrong weights");
}

const std::vector<int>& windowSides(GraphDraft& draft, const Operation& operation) {
    demand(operation.inputs.size() == 3, "a layer has the wrong inputs");
    const auto& sides = draft.tensor(operation.inputs[1]).sides;
    demand(sides.size() == 4, "a layer has the wrong weights");
    draft.tensor(operation.inputs[1]).numbers();
    return sides;
}

/// Windows that step over the picture: both kinds of convolution.
NewLayer windowed(GraphDraft& draft, const Operation& operation, bool depthwise) {
    NewLayer made = begun(draft, operation, depthwise ? Kind::depthwise : Kind::convolution, 1);
    Layer& layer = made.layer;
    const auto sides = windowSides(draft, operation);
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
    readWeights(draft, operation, layer, made.shape.channels);
    draft.products += made.shape.pixels() * layer.weights.size();
    return made;
}

/// A transposed convolution whose windows don't overlap.
NewLayer enlarging(GraphDraft& draft, const Operation& operation) {
    demand(operation.name == "Convolution2DTransposeBias" && operation.custom.size() >= 12,
           "it has a layer of an unknown kind");
    NewLayer made = begun(draft, operation, Kind::enlarging, 1);
    Layer& layer = made.layer;
    const auto sides = windowSides(draft, operation);
    int strides[2];
    std::memcpy(strides, operation.custom.data() + 4, sizeof strides);
    demand(sides[3] == made.shape.channels, "a layer has the wrong weights");
    demand(sides[1] == strides[1] && sides[2] == strides[0], "enlarged windows overlap");
    layer.windowHigh = layer.strideDown = sides[1];
    layer.windowWide = layer.strideAcross = sides[2];
    draft.products += made.shape.pixels() * draft.tensor(operation.inputs[1]).numbers();
    made.shape = {made.shape.height * sides[1], made.shape.width * sides[2], sides[0]};
    readWeights(draft, operation, layer, sides[0]);
    return made;
}

NewLayer pairwise(GraphDraft& draft, const Operation& operation, Kind kind) {
    NewLayer made = begun(draft, operation, kind, 2);
    Layer& layer = made.layer;
    const auto shape = [&](int input) { return draft.graph.values[std::size_t(layer.inputs[input])]; };
    // One pixel for all stands second.
    if (kind == Kind::multiply && shape(0).pixels() == 1) std::swap(layer.inputs[0], layer.inputs[1]);
    made.shape = shape(0);
    const Shape onePixel{1, 1, made.shape.channels};
    demand(shape(1) == made.shape || (kind == Kind::multiply && shape(1) == onePixel),
           "values of different sizes meet");
    layer.activation = fused(operation.choice(0));
    return made;
}

NewLayer mean(GraphDraft& draft, const Operation& operation) {
    NewLayer made = begun(draft, operation, Kind::mean, 1);
    if (operation.code == opAveragePool) {
        const bool whole =
            operation.option(3) == made.shape.width && operation.option(4) == made.shape.height &&
            (operation.choice(0) == 1 ||
             (operation.option(1) >= made.shape.width && operation.option(2) >= made.shape.height));
        demand(whole, "a mean is not of the whole picture");
        made.layer.activation = fused(operation.choice(5));
    } else {
        demand(operation.inputs.size() == 2, "a layer has the wrong inputs");
        auto sides = draft.integers(operation.inputs[1]);
        std::sort(sides.begin(), sides.end());
        demand(sides == std::vector{1, 2}, "a mean is not of the whole picture");
    }
    made.shape = {1, 1, made.shape.channels};
    return made;
}

NewLayer resize(GraphDraft& draft, const Operation& operation) {
    NewLayer made = begun(draft, operation, Kind::resize, 1);
    demand(operation.inputs.size() == 2, "a layer has the wrong inputs");
    const auto sides = draft.integers(operation.inputs[1]);
    demand(sides.size() == 2, "a size is missing");
    demand(operation.choice(2) == 0 && operation.choice(3) == 1, "a picture is resized in an unknown way");
    made.shape.height = sides[0];
    made.shape.width = sides[1];
    return made;
}

NewLayer activation(GraphDraft& draft, const Operation& operation, Activation kind) {
    NewLayer made = begun(draft, operation, Kind::activate, 1);
    made.layer.activation = kind;
    return made;
}

NewLayer layerOf(GraphDraft& draft, const Operation& operation) {
    switch (operation.code) {
        case opConvolution:
            return windowed(draft, operation, false);
        case opDepthwise:
            return windowed(draft, operation, true);
        case opCustom:
            return enlarging(draft, operation);
        case opAdd:
            return pairwise(draft, operation, Kind::add);
        case opMultiply:
            return pairwise(draft, operation, Kind::multiply);
        case opAveragePool:
        case opMean:
            return mean(draft, operation);
        case opResize:
            return resize(draft, operation);
        case opRelu:
            return activation(draft, operation, Activation::relu);
        case opRelu6:
            return activation(draft, operation, Activation::relu6);
        case opHardSwish:
            return activation(draft, operation, Activation::hardSwish);
        case opLogistic:
            return activation(draft, operation, Activation::logistic);
        default:
            refuse("it has a layer of an unknown kind");
    }
}

/// Weights of 16 bits stand in the file with a layer that widens them; here they are widened as they are
/// read.
void dequantise(GraphDraft& draft, const Operation& operation) {
    demand(operation.inputs.size() == 1 && operation.outputs.size() == 1, "a layer has the wrong inputs");
    const Tensor& narrow = draft.tensor(operation.inputs[0]);
    Tensor& wide = draft.tensor(operation.outputs[0]);
    demand(narrow.type == Tensor::float16 && wide.value < 0 && wide.sides == narrow.sides,
           "weights are of an unknown kind");
    wide.type = Tensor::float16;
    wide.stored = narrow.stored;
}

void add(GraphDraft& draft, const Operation& operation) {
    if (operation.code == opDequantise) return dequantise(draft, operation);
    NewLayer made = layerOf(draft, operation);
    made.layer.output = draft.newValue(draft.tensor(operation.outputs[0]));
    demand(made.shape == draft.graph.values.back(), "a layer's result has the wrong size");
    draft.products += made.shape.size();
    demand(draft.products <= maxProducts, "it asks for too much work");
    draft.graph.layers.push_back(std::move(made.layer));
}

std::vector<Tensor> readTensors(const FlatTable& file, const FlatTable& graph) {
    const auto buffers = file.tables(4, maxEntries);
    std::vector<Tensor> result;
    for (const FlatTable& table : graph.tables(0, maxEntries)) {
        const auto buffer = std::size_t(table.number(2));
        demand(buffer < buffers.size(), "a value has no place");
        result.push_back({table.numbers(0, 8), table.byte(1), buffers[buffer].bytes(0)});
    }
    return result;
}

std::vector<Operation> readOperations(const FlatTable& file, const FlatTable& graph) {
    const auto codes = file.tables(1, maxEntries);
    std::vector<Operation> result;
    for (const FlatTable& table : graph.tables(3, maxEntries)) {
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
    demand(bytes.size() >= 8 && bytes.size() <= maxBytes && bytes.substr(4, 4) == "TFL3",
           "it is no TFLite file");
    const FlatTable file = FlatTable::root(bytes);
    const auto graphs = file.tables(2, 1);
    demand(graphs.size() == 1, "it holds no network");

    GraphDraft draft;
    draft.tensors = readTensors(file, graphs[0]);
    draft.graph.input = draft.newValue(draft.tensor(only(graphs[0].numbers(1, 1))));
    for (const Operation& operation : readOperations(file, graphs[0])) add(draft, operation);
    draft.graph.output = draft.knownValue(only(graphs[0].numbers(2, 1)));
    return std::move(draft.graph);
}

}
