#pragma once

#include "platform/vision/Network.h"

/// Small networks to try, of layers with numbers at random, beside the plain one.
namespace murbo::TriedNetwork {

using Kind = Graph::Layer::Kind;
using Activation = Graph::Activation;

struct Case {
    const char* name;
    std::vector<Graph::Shape> values; ///< the first is given, the last asked for
    std::vector<Graph::Layer> layers;
};

Graph::Layer layer(Kind kind, std::vector<int> inputs, int output, Activation activation = Activation::none);
Graph::Layer windowed(Kind kind, int side, int stride, int ahead, int inputs, int outputs,
                      Activation activation = Activation::none);
std::vector<float> result(const Network& network);

/// Fails where a network gives anything but what its graph is defined to.
void expectAsPlain(const Graph& graph);
void expectAsPlain(const std::vector<Case>& cases);

}
