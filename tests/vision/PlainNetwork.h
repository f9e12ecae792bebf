#pragma once

#include "platform/vision/Graph.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace murbo {

/// What a graph makes of its input, layer by layer, number by number, in double.
class PlainNetwork {
public:
    static std::vector<double> run(const Graph& graph, const std::vector<double>& input) {
        PlainNetwork plain{graph};
        plain.values[std::size_t(graph.input)] = input;
        for (const auto& layer : graph.layers) plain.run(layer);
        return plain.values[std::size_t(graph.output)];
    }

private:
    using Kind = Graph::Layer::Kind;
    explicit PlainNetwork(const Graph& given) : graph(given), values(given.values.size()) {}

    /// Nothing lies beyond the picture.
    double at(int value, int y, int x, int channel) const {
        const auto shape = graph.values[std::size_t(value)];
        if (y < 0 || x < 0 || y >= shape.height || x >= shape.width) return 0;
        return values[std::size_t(value)][(std::size_t(y) * shape.width + x) * shape.channels + channel];
    }

    static double activated(double x, Graph::Activation activation) {
        switch (activation) {
            case Graph::Activation::none:
                return x;
            case Graph::Activation::relu:
                return std::max(x, 0.);
            case Graph::Activation::relu6:
                return std::clamp(x, 0., 6.);
            case Graph::Activation::hardSwish:
                return x * std::clamp(x + 3, 0., 6.) / 6;
            case Graph::Activation::logistic:
                return 1 / (1 + std::exp(-x));
        }
        return 0;
    }

    double weight(const Graph::Layer& layer, int output, int row, int column, int input, int inputs) const {
        const std::size_t spot = (std::size_t(output) * layer.windowHigh + row) * layer.windowWide + column;
        return layer.weights[spot * inputs + input];
    }

    double windowed(const Graph::Layer& layer, int y, int x, int channel) const {
        const int inputs = graph.values[std::size_t(layer.inputs[0])].channels;
        const bool alone = layer.kind == Kind::depthwise;
        double sum = layer.bias[std::size_t(channel)];
        for (int row = 0; row < layer.windowHigh; ++row)
            for (int column = 0; column < layer.windowWide; ++column)
                for (int i = alone ? channel : 0; i < (alone ? channel + 1 : inputs); ++i)
                    sum += at(layer.inputs[0], y * layer.strideDown - layer.above + row,
                              x * layer.strideAcross - layer.before + column, i) *
                           weight(layer, alone ? 0 : channel, row, column, i, inputs);
        return sum;
    }

    double enlarged(const Graph::Layer& layer, int y, int x, int channel) const {
        const int inputs = graph.values[std::size_t(layer.inputs[0])].channels;
        double sum = layer.bias[std::size_t(channel)];
        for (int i = 0; i < inputs; ++i)
            sum += at(layer.inputs[0], y / layer.windowHigh, x / layer.windowWide, i) *
                   weight(layer, channel, y % layer.windowHigh, x % layer.windowWide, i, inputs);
        return sum;
    }

    double resized(const Graph::Layer& layer, Graph::Shape to, int y, int x, int channel) const {
        const auto from = graph.values[std::size_t(layer.inputs[0])];
        const auto place = [](int i, int given, int wanted) {
            return std::clamp((i + 0.5) * given / wanted - 0.5, 0., given - 1.);
        };
        const double down = place(y, from.height, to.height), along = place(x, from.width, to.width);
        double sum = 0;
        for (int row = 0; row < from.height; ++row)
            for (int column = 0; column < from.width; ++column)
                sum += at(layer.inputs[0], row, column, channel) * std::max(1 - std::abs(down - row), 0.) *
                       std::max(1 - std::abs(along - column), 0.);
        return sum;
    }

    double mean(const Graph::Layer& layer, int channel) const {
        const auto from = graph.values[std::size_t(layer.inputs[0])];
        double sum = 0;
        for (int y = 0; y < from.height; ++y)
            for (int x = 0; x < from.width; ++x) sum += at(layer.inputs[0], y, x, channel);
        return sum / double(from.pixels());
    }

    double made(const Graph::Layer& layer, Graph::Shape to, int y, int x, int channel) const {
        const auto first = [&] { return at(layer.inputs[0], y, x, channel); };
        switch (layer.kind) {
            case Kind::convolution:
            case Kind::depthwise:
                return windowed(layer, y, x, channel);
            case Kind::enlarging:
                return enlarged(layer, y, x, channel);
            case Kind::add:
                return first() + at(layer.inputs[1], y, x, channel);
            case Kind::multiply: {
                const bool one = graph.values[std::size_t(layer.inputs[1])].pixels() == 1;
                return first() * at(layer.inputs[1], one ? 0 : y, one ? 0 : x, channel);
            }
            case Kind::mean:
                return mean(layer, channel);
            case Kind::resize:
                return resized(layer, to, y, x, channel);
            case Kind::activate:
                return first();
        }
        return 0;
    }

    void run(const Graph::Layer& layer) {
        const auto to = graph.values[std::size_t(layer.output)];
        std::vector<double> result;
        for (int y = 0; y < to.height; ++y)
            for (int x = 0; x < to.width; ++x)
                for (int channel = 0; channel < to.channels; ++channel)
                    result.push_back(activated(made(layer, to, y, x, channel), layer.activation));
        values[std::size_t(layer.output)] = std::move(result);
    }

    const Graph& graph;
    std::vector<std::vector<double>> values;
};

}
