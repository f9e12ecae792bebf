#include "platform/vision/Network.h"

#include "platform/base/Problem.h"
#include "platform/vision/NetworkKernels.h"

#include <algorithm>
#include <cmath>

namespace murbo {

namespace {

using Kind = Graph::Layer::Kind;
using NetworkKernels::ConvolutionWindow;

constexpr std::size_t maxFloats = 32 << 20; ///< of a run: some thirty times what the networks in use need
constexpr std::size_t alignment = 16;       ///< in floats: a cache line

/// A layer's weights in the order of the schema, output channels outermost, with those innermost.
std::vector<float> outputsInnermost(const std::vector<float>& weights, std::size_t outputs) {
    std::vector<float> result(weights.size());
    const std::size_t inputs = weights.size() / outputs;
    for (std::size_t output = 0; output < outputs; ++output)
        for (std::size_t i = 0; i < inputs; ++i) result[i * outputs + output] = weights[output * inputs + i];
    return result;
}

/// What of a window lies inside a picture's side.
struct Part {
    int first = 0;
    int count = 0;
    bool operator==(const Part&) const = default;
};
Part inside(int start, int window, int side) {
    const int first = std::clamp(-start, 0, window);
    return {first, std::clamp(side - start, first, window) - first};
}

}

Network::Network(Graph given) : graph(std::move(given)) {
    graph.simplify();
    placeValues();
    layOutWeights();
}

/// Values that are not needed at one time share memory: each takes the first gap between those that are.
void Network::placeValues() {
    struct Life {
        int value;
        std::size_t first, last; ///< layers
    };
    std::vector<Life> lives(graph.values.size());
    for (std::size_t i = 0; i < lives.size(); ++i) lives[i] = {int(i), graph.layers.size(), 0};
    const auto touch = [&](int value, std::size_t layer) {
        Life& life = lives[std::size_t(value)];
        life.first = std::min(life.first, layer);
        life.last = std::max(life.last, layer);
    };
    touch(graph.input, 0);
    touch(graph.output, graph.layers.size());
    for (std::size_t i = 0; i < graph.layers.size(); ++i) {
        touch(graph.layers[i].output, i);
        for (const int input : graph.layers[i].inputs) touch(input, i);
    }

    places.assign(graph.values.size(), 0);
    std::vector<Life> placed;
    const auto size = [&](int value) {
        return (shape(value).size() + alignment - 1) / alignment * alignment;
    };
    for (const Life& life : lives) {
        if (life.first > life.last) continue; // joined with another layer's
        std::size_t& at = places[std::size_t(life.value)];
        for (const Life& other : placed) { // from low to high
            const std::size_t start = places[std::size_t(other.value)];
            const bool together = other.first <= life.last && life.first <= other.last;
            if (together && start < at + size(life.value)) at = std::max(at, start + size(other.value));
        }
        const auto after = std::find_if(placed.begin(), placed.end(), [&](const Life& other) {
            return places[std::size_t(other.value)] > at;
        });
        placed.insert(after, life);
        floats = std::max(floats, at + size(life.value));
    }

    spare = floats;
    std::size_t largest = 0;
    for (const auto& layer : graph.layers) {
        if (layer.kind == Kind::enlarging) largest = std::max(largest, shape(layer.output).size());
        if (layer.kind == Kind::resize)
            largest =
                std::max(largest, std::size_t(shape(layer.inputs[0]).width) * shape(layer.output).channels);
    }
    floats += largest;
    if (floats > maxFloats) throw Problem("The network can't be used: it needs too much memory.");
}

void Network::layOutWeights() {
    for (auto& layer : graph.layers) {
        if (layer.kind == Kind::convolution)
            layer.weights = outputsInnermost(layer.weights, layer.bias.size());
        if (layer.kind != Kind::enlarging) continue;
        // Each place in the window is as good as an output of its own.
        const std::size_t spots = std::size_t(layer.windowHigh) * layer.windowWide;
        const std::size_t outputs = layer.bias.size();
        const std::size_t channels = layer.weights.size() / outputs / spots;
        std::vector<float> weights(layer.weights.size()), bias;
        for (std::size_t spot = 0; spot < spots; ++spot)
            for (std::size_t output = 0; output < outputs; ++output) {
                bias.push_back(layer.bias[output]);
                for (std::size_t i = 0; i < channels; ++i)
                    weights[(i * spots + spot) * outputs + output] =
                        layer.weights[(output * spots + spot) * channels + i];
            }
        layer.weights = std::move(weights);
        layer.bias = std::move(bias);
    }
}

float* Network::value(std::vector<float>& memory, int index) const {
    return memory.data() + places[std::size_t(index)];
}

void Network::convolve(const Graph::Layer& layer, const float* input, float* output) const {
    const Graph::Shape from = shape(layer.inputs[0]);
    const Graph::Shape to = shape(layer.output);
    const std::ptrdiff_t rowFloats = std::ptrdiff_t(from.width) * from.channels;
    const bool depthwise = layer.kind == Kind::depthwise;
    ConvolutionWindow window{layer.windowHigh,
                             layer.windowWide,
                             from.channels,
                             rowFloats,
                             layer.strideAcross * std::ptrdiff_t(from.channels),
                             nullptr,
                             0,
                             layer.bias.data(),
                             to.channels,
                             layer.activation};
    const std::ptrdiff_t pixelWeights = std::ptrdiff_t(from.channels) * (depthwise ? 1 : to.channels);
    window.weightStep = layer.windowWide * pixelWeights;
    const auto kernel = depthwise ? NetworkKernels::convolveDepthwise : NetworkKernels::convolve;

    if (layer.windowHigh * layer.windowWide == 1 && layer.strideDown * layer.strideAcross == 1) {
        window.weights = layer.weights.data();
        kernel(window, input, int(to.pixels()), output);
        return;
    }
    for (int y = 0; y < to.height; ++y) {
        const int top = y * layer.strideDown - layer.above;
        const Part rows = inside(top, layer.windowHigh, from.height);
        // Runs of pixels whose windows hang over the edge alike.
        for (int x = 0, next; x < to.width; x = next) {
            const int left = x * layer.strideAcross - layer.before;
            const Part columns = inside(left, layer.windowWide, from.width);
            for (next = x + 1; next < to.width; ++next)
                if (inside(next * layer.strideAcross - layer.before, layer.windowWide, from.width) != columns)
                    break;
            window.rows = rows.count;
            window.columns = columns.count;
            window.weights =
                layer.weights.data() + rows.first * window.weightStep + columns.first * pixelWeights;
            kernel(
                window,
                input + (top + rows.first) * rowFloats + std::ptrdiff_t(left + columns.first) * from.channels,
                next - x, output + (std::ptrdiff_t(y) * to.width + x) * to.channels);
        }
    }
}

void Network::enlarge(const Graph::Layer& layer, const float* input, float* spareFloats,
                      float* output) const {
    const Graph::Shape from = shape(layer.inputs[0]);
    const int channels = shape(layer.output).channels;
    ConvolutionWindow window{1,
                             1,
                             from.channels,
                             0,
                             from.channels,
                             layer.weights.data(),
                             0,
                             layer.bias.data(),
                             int(layer.bias.size()),
                             layer.activation};
    NetworkKernels::convolve(window, input, int(from.pixels()), spareFloats);
    const int together = layer.windowWide * channels;
    const float* next = spareFloats;
    for (int y = 0; y < from.height; ++y) {
        float* rows = output + std::ptrdiff_t(y) * layer.windowHigh * from.width * together;
        for (int x = 0; x < from.width; ++x)
            for (int row = 0; row < layer.windowHigh; ++row, next += together)
                std::copy_n(next, together, rows + (std::ptrdiff_t(row) * from.width + x) * together);
    }
}

void Network::mean(const Graph::Layer& layer, const float* input, float* output) const {
    const Graph::Shape from = shape(layer.inputs[0]);
    // Row by row: a sum of few numbers loses less than one of many.
    std::vector<float> row(std::size_t(from.channels));
    std::fill_n(output, from.channels, 0.f);
    for (int y = 0; y < from.height; ++y) {
        std::fill(row.begin(), row.end(), 0.f);
        NetworkKernels::addPixels(input + std::size_t(y) * from.width * from.channels,
                                  std::size_t(from.width), from.channels, row.data());
        NetworkKernels::add(output, row.data(), row.size(), Graph::Activation::none, output);
    }
    const std::vector<float> share(row.size(), 1.f / float(from.pixels()));
    NetworkKernels::multiply(output, share.data(), row.size(), layer.activation, output);
}

void Network::resize(const Graph::Layer& layer, const float* input, float* spareFloats, float* output) const {
    const Graph::Shape from = shape(layer.inputs[0]);
    const Graph::Shape to = shape(layer.output);
    const std::size_t rowFloats = std::size_t(from.width) * from.channels;
    const auto columns = BilinearResize::places(from.width, to.width, std::size_t(from.channels));
    const auto rows = BilinearResize::places(from.height, to.height, rowFloats);
    for (int y = 0; y < to.height; ++y) {
        const BilinearResize::SourcePair& at = rows[std::size_t(y)];
        NetworkKernels::between(input + at.before, input + at.after, at.part, rowFloats, spareFloats);
        NetworkKernels::betweenPixels(spareFloats, columns.data(), to.width, to.channels,
                                      output + std::size_t(y) * to.width * to.channels);
    }
}

void Network::run(const Graph::Layer& layer, std::vector<float>& memory) const {
    const float* input = value(memory, layer.inputs[0]);
    const float* other = layer.inputs.size() > 1 ? value(memory, layer.inputs[1]) : nullptr;
    float* output = value(memory, layer.output);
    const Graph::Shape to = shape(layer.output);
    switch (layer.kind) {
        case Kind::convolution:
        case Kind::depthwise:
            return convolve(layer, input, output);
        case Kind::enlarging:
            return enlarge(layer, input, memory.data() + spare, output);
        case Kind::add:
            return NetworkKernels::add(input, other, to.size(), layer.activation, output);
        case Kind::multiply:
            if (shape(layer.inputs[1]) == to)
                return NetworkKernels::multiply(input, other, to.size(), layer.activation, output);
            return NetworkKernels::multiplyByPixel(input, other, to.pixels(), to.channels, layer.activation,
                                                   output);
        case Kind::mean:
            return mean(layer, input, output);
        case Kind::resize:
            return resize(layer, input, memory.data() + spare, output);
        case Kind::activate:
            return NetworkKernels::activate(input, to.size(), layer.activation, output);
    }
}

Network::Run::Run(const Network& given) : network(given) {
    {
        const std::lock_guard held(network.lock);
        if (!network.idle.empty()) {
            memory = std::move(network.idle.back());
            network.idle.pop_back();
        }
    }
    memory.resize(network.floats);
}

Network::Run::~Run() {
    const std::lock_guard held(network.lock);
    network.idle.push_back(std::move(memory));
}

std::span<float> Network::Run::input() {
    return {network.value(memory, network.graph.input), network.input().size()};
}

std::span<const float> Network::Run::output() {
    for (const auto& layer : network.graph.layers) network.run(layer, memory);
    return {network.value(memory, network.graph.output), network.output().size()};
}

}
