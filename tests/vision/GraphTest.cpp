#include "tests/vision/TriedNetwork.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::TriedNetwork;

namespace {

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

}

TEST(Graph, isTheSameWhereLayersChangePlaces) {
    expectAsPlain(enlargedThenMixed());
}
