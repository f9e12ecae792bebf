#pragma once

#include "platform/vision/Graph.h"

#include <memory>
#include <mutex>
#include <span>
#include <vector>

namespace murbo {

/// A network ready to run. The same input gives the same bits on any thread and any instruction set. Any
/// thread may run it; each has memory of its own while it does, so none waits for another.
class Network {
public:
    /// Prepares a graph as `GraphFile::read` gives it. Throws Problem where it would need too much memory.
    explicit Network(Graph graph);

    Graph::Shape input() const { return graph.values[std::size_t(graph.input)]; }
    Graph::Shape output() const { return graph.values[std::size_t(graph.output)]; }

    /// Memory to run in, with a place for the input. Goes back to the network when it is dropped; the network
    /// must outlive it.
    class Run {
    public:
        explicit Run(const Network& network);
        ~Run();
        Run(const Run&) = delete;
        Run& operator=(const Run&) = delete;

        /// To be filled: rows from the top, each pixel's channels together.
        std::span<float> input();
        /// Runs. The result is laid out as the input is, which it uses up.
        std::span<const float> output();

    private:
        const Network& network;
        std::vector<float> memory;
    };

private:
    void placeValues();
    void layOutWeights();
    float* value(std::vector<float>& memory, int index) const;
    const Graph::Shape& shape(int value) const { return graph.values[std::size_t(value)]; }
    void run(const Graph::Layer& layer, std::vector<float>& memory) const;
    void convolve(const Graph::Layer& layer, const float* input, float* output) const;
    void enlarge(const Graph::Layer& layer, const float* input, float* spare, float* output) const;
    void mean(const Graph::Layer& layer, const float* input, float* output) const;
    void resize(const Graph::Layer& layer, const float* input, float* spare, float* output) const;

    Graph graph;
    std::vector<std::size_t> places; ///< of each value, in floats
    std::size_t spare = 0;           ///< where a layer may write beside its result
    std::size_t floats = 0;          ///< of a run's memory

    mutable std::mutex lock;
    mutable std::vector<std::vector<float>> idle; ///< memory of runs gone by
};

}
