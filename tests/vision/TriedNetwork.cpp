#include "tests/vision/TriedNetwork.h"

#include "tests/vision/PlainNetwork.h"

#include <random>

#include <gtest/gtest.h>

namespace murbo::TriedNetwork {
namespace {

std::vector<float> numbers(std::size_t count) {
    std::minstd_rand random(unsigned(count) + 1);
    std::vector<float> result(count);
    for (float& number : result) number = float(random() % 4001) / 1000 - 2;
    return result;
}

}

Graph::Layer layer(Kind kind, std::vector<int> inputs, int output, Activation activation) {
    Graph::Layer made;
    made.kind = kind;
    made.inputs = std::move(inputs);
    made.output = output;
    made.activation = activation;
    return made;
}

Graph::Layer windowed(Kind kind, int side, int stride, int ahead, int inputs, int outputs,
                      Activation activation) {
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

void expectAsPlain(const std::vector<Case>& cases) {
    for (const Case& example : cases) {
        SCOPED_TRACE(example.name);
        expectAsPlain({example.values, example.layers, 0, int(example.values.size()) - 1});
    }
}

}
