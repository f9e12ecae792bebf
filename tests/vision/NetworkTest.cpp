#include "platform/base/Problem.h"
#include "tests/image/Targets.h"
#include "tests/vision/TriedNetwork.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::TriedNetwork;

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
