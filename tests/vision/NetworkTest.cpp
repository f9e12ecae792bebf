#include "platform/base/Problem.h"
#include "platform/vision/Network.h"
#include "tests/image/Targets.h"
#include "tests/vision/PlainNetwork.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;
using Kind = Graph::Layer::Kind;
using Activation = Graph::Activation;

namespace {

std::vector<float> numbers(std::size_t count) {
    std::minstd_rand random(unsigned(count) + 1);
    std::vector<float> result(count);
    for (float& number : result) number = float(random() % 4001) / 1000 - 2;
    return result;
}

Graph::Layer layer(Kind kind, std::vector<int> inputs, int output, Activation activation = Activation::none) {
    Graph::Layer made;
    made.kind = kind;
    made.inputs = std::move(inputs);
    made.output = output;
    made.activation = activation;
    return made;
}

Graph::Layer windowed(Kind kind, int side, int stride, int ahead, int inputs, int outputs,
                      Activation activation = Activation::none) {
    Graph::Layer made = layer(kind, {0}, 1, activation);
    made.windowHigh = made.windowWide = side;
    made.strideDown = made.strideAcross = stride;
    made.above = made.before = ahead;
    made.weights = numbers(std::size_t(side) * side * inputs * (kind == Kind::depthwise ? 1 : outputs));
    made.bias = numbers(std::size_t(outputs));
    return made;
}

std::vector<float> result(const Network& network) {
    Network::Run run(network);
    const auto given = numbers(run.input().size());
    std::copy(given.begin(), given.end(), run.input().begin());
    const auto found = run.output();
    return {found.begin(), found.end()};
}

struct Case {
    const char* name;
    std::vector<Graph::Shape> values; ///< the first is given, the last asked for
    std::vector<Graph::Layer> layers;
};

// Odd sizes, so that vectors have tails and windows hang over every edge.
const std::vector<Case> cases{
    {"a convolution that steps by two",
     {{9, 13, 3}, {5, 7, 21}},
     {windowed(Kind::convolution, 3, 2, 1, 3, 21)}},
    {"one that pads behind only", {{8, 12, 3}, {4, 6, 16}}, {windowed(Kind::convolution, 3, 2, 0, 3, 16)}},
    {"a mix of channels",
     {{3, 7, 24}, {3, 7, 72}},
     {windowed(Kind::convolution, 1, 1, 0, 24, 72, Activation::relu)}},
    {"a depthwise window",
     {{7, 11, 27}, {7, 11, 27}},
     {windowed(Kind::depthwise, 5, 1, 2, 27, 27, Activation::hardSwish)}},
    {"one wider than its picture", {{2, 3, 8}, {2, 3, 8}}, {windowed(Kind::depthwise, 5, 1, 2, 8, 8)}},
    {"an enlarging one",
     {{4, 5, 16}, {8, 10, 1}},
     {windowed(Kind::enlarging, 2, 2, 0, 16, 1, Activation::logistic)}},
    {"one of several channels", {{3, 3, 5}, {9, 9, 3}}, {windowed(Kind::enlarging, 3, 3, 0, 5, 3)}},
    {"a sum", {{3, 5, 7}, {3, 5, 7}}, {layer(Kind::add, {0, 0}, 1, Activation::relu6)}},
    {"a mean that weighs its own picture",
     {{6, 5, 11}, {1, 1, 11}, {6, 5, 11}},
     {layer(Kind::mean, {0}, 1, Activation::logistic), layer(Kind::multiply, {0, 1}, 2)}},
    {"a square", {{3, 5, 7}, {3, 5, 7}}, {layer(Kind::multiply, {0, 0}, 1)}},
    {"larger", {{3, 4, 10}, {6, 8, 10}}, {layer(Kind::resize, {0}, 1)}},
    {"smaller and larger", {{7, 4, 3}, {5, 9, 3}}, {layer(Kind::resize, {0}, 1)}},
    {"an activation of what is used twice",
     {{4, 4, 9}, {4, 4, 9}, {4, 4, 9}, {4, 4, 9}},
     {layer(Kind::multiply, {0, 0}, 1), layer(Kind::activate, {1}, 2, Activation::hardSwish),
      layer(Kind::add, {1, 2}, 3)}},
};

/// Larger, then mixed and activated: mixed first in the end.
Graph enlargedThenMixed() {
    Graph graph;
    graph.values = {{3, 5, 12}, {6, 10, 12}, {6, 10, 8}, {6, 10, 8}};
    Graph::Layer mix = windowed(Kind::convolution, 1, 1, 0, 12, 8);
    mix.inputs = {1};
    mix.output = 2;
    graph.layers = {layer(Kind::resize, {0}, 1), mix, layer(Kind::activate, {2}, 3, Activation::logistic)};
    graph.output = 3;
    return graph;
}

void expectAsPlain(const Graph& graph) {
    const auto given = numbers(graph.values[0].size());
    const auto expected = PlainNetwork::run(graph, {given.begin(), given.end()});
    const auto found = result(Network(graph));
    ASSERT_EQ(found.size(), expected.size());
    double worst = 0;
    for (std::size_t i = 0; i < found.size(); ++i)
        worst = std::max(worst, std::abs(found[i] - expected[i]) / std::max(1., std::abs(expected[i])));
    EXPECT_LT(worst, 1e-5);
}

}

TEST(Network, eachLayerIsAsDefined) {
    for (const Case& example : cases) {
        SCOPED_TRACE(example.name);
        expectAsPlain({example.values, example.layers, 0, int(example.values.size()) - 1});
    }
    SCOPED_TRACE("layers that change places");
    expectAsPlain(enlargedThenMixed());
}

TEST(Network, everyInstructionSetGivesTheSameBits) {
    Graph graph;
    graph.values = {{9, 13, 3}, {9, 13, 37}, {9, 13, 37}, {18, 26, 1}};
    Graph::Layer second = windowed(Kind::depthwise, 5, 1, 2, 37, 37, Activation::hardSwish);
    second.inputs = {1};
    second.output = 2;
    Graph::Layer third = windowed(Kind::enlarging, 2, 2, 0, 37, 1, Activation::logistic);
    third.inputs = {2};
    third.output = 3;
    graph.layers = {windowed(Kind::convolution, 3, 1, 1, 3, 37, Activation::logistic), second, third};
    graph.output = 3;
    const Network network(graph);
    const auto expected = result(network);
    onEachTarget([&](const char* name) { EXPECT_EQ(result(network), expected) << name; });
}

TEST(Network, tooMuchMemoryIsRefused) {
    Graph graph;
    graph.values.assign(20, {2048, 2048, 1});
    for (int i = 0; i < 18; ++i) graph.layers.push_back(layer(Kind::add, {0, 0}, i + 1));
    for (int i = 0; i < 18; ++i) graph.layers.push_back(layer(Kind::add, {i + 1, i + 1}, 19));
    graph.output = 19;
    EXPECT_THROW(Network{graph}, Problem);
}
