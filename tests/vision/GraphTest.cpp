#include "tests/vision/TriedNetwork.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::TriedNetwork;

namespace {

/// Larger, then mixed, and activated aside: mixed first in the end.
Graph enlargedThenMixed() {
    Graph graph;
    graph.values = {{3, 5, 12}, {6, 10, 12}, {6, 10, 8}, {6, 10, 8}};
    Graph::Layer mix = windowed(Kind::convolution, 1, 1, 0, 12, 8);
    mix.inputs = {1};
    mix.output = 2;
    graph.layers = {layer(Kind::resize, {0}, 1), mix, layer(Kind::activate, {2}, 3, Activation::logistic)};
    graph.output = 2;
    return graph;
}

}

TEST(Graph, isTheSameWhereLayersChangePlaces) {
    Graph graph = enlargedThenMixed();
    expectAsPlain(graph);
    graph.simplify();
    EXPECT_EQ(graph.layers[0].kind, Kind::convolution) << "where fewer pixels need it";
}

TEST(Graph, anActivationStaysWhereTheLayerBeforeHasOneOrIsReadTwice) {
    for (const bool twice : {false, true}) {
        Graph graph;
        graph.values.assign(5, {4, 6, 8});
        graph.layers = {
            windowed(Kind::convolution, 1, 1, 0, 8, 8, twice ? Activation::none : Activation::hardSwish),
            layer(Kind::activate, {1}, 2, Activation::relu),
            layer(Kind::activate, {2}, 3, Activation::logistic), layer(Kind::add, {3, twice ? 1 : 3}, 4)};
        graph.output = 4;
        expectAsPlain(graph);
    }
}
