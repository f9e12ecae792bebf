#include "platform/vision/Graph.h"

#include <utility>

namespace murbo {

std::vector<int> Graph::uses() const {
    std::vector<int> result(values.size());
    for (const Layer& layer : layers)
        for (const int value : layer.inputs) ++result[std::size_t(value)];
    ++result[std::size_t(output)];
    return result;
}

namespace {

using Kind = Graph::Layer::Kind;

/// An activation joins the layer before it where nobody else looks at that one's result.
void joinActivations(Graph& graph) {
    const auto uses = graph.uses();
    std::vector<int> makers(graph.values.size(), -1);
    std::vector<Graph::Layer> kept;
    for (Graph::Layer& layer : graph.layers) {
        const int input = layer.inputs[0];
        const int maker = layer.kind == Kind::activate ? makers[std::size_t(input)] : -1;
        const bool joins = maker >= 0 && uses[std::size_t(input)] == 1 &&
                           kept[std::size_t(maker)].kind != Kind::resize &&
                           kept[std::size_t(maker)].activation == Graph::Activation::none;
        if (joins) {
            kept[std::size_t(maker)].activation = layer.activation;
            kept[std::size_t(maker)].output = layer.output;
        }
        makers[std::size_t(layer.output)] = joins ? maker : int(kept.size());
        if (!joins) kept.push_back(std::move(layer));
    }
    graph.layers = std::move(kept);
}

bool mixesChannelsOnly(const Graph::Layer& layer) {
    return layer.kind == Kind::convolution && layer.windowHigh == 1 && layer.windowWide == 1 &&
           layer.strideDown == 1 && layer.strideAcross == 1 && layer.activation == Graph::Activation::none;
}

/// The layer that alone reads `value`, where it only mixes its channels.
Graph::Layer* mixOf(Graph& graph, int value) {
    for (auto& layer : graph.layers)
        if (layer.inputs[0] == value && mixesChannelsOnly(layer)) return &layer;
    return nullptr;
}

/// Enlarging and mixing channels are both sums with weights, so they may change places: mixed first, a
/// quarter of the pixels needs it.
void mixBeforeEnlarging(Graph& graph) {
    const auto uses = graph.uses();
    for (auto& earlier : graph.layers) {
        const int between = earlier.output;
        if (earlier.kind != Kind::resize || uses[std::size_t(between)] != 1) continue;
        const Graph::Shape from = graph.values[std::size_t(earlier.inputs[0])];
        if (from.pixels() >= graph.values[std::size_t(between)].pixels()) continue;
        Graph::Layer* later = mixOf(graph, between);
        if (!later) continue;
        graph.values[std::size_t(between)] = {from.height, from.width, int(later->bias.size())};
        std::swap(earlier, *later);
        std::swap(earlier.inputs, later->inputs);
        std::swap(earlier.output, later->output);
    }
}

}

void Graph::simplify() {
    joinActivations(*this);
    mixBeforeEnlarging(*this);
}

}
