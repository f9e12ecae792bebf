#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "platform/vision/GraphFile.h"
#include "platform/vision/Network.h"
#include "tests/vision/FlatBuffers.h"

#include <random>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::FlatBuffers;

namespace {

/// Two channels out of one by weights of 16 bits, enlarged by half, activated.
std::string smallFile() {
    const auto code = [](int number) { return table({number, none, 1, number}); };
    const auto value = [](std::vector<int> sides, int type, int buffer) {
        return table({numbers(sides), type, buffer});
    };
    const std::string halves = bytes(std::uint16_t(0x3C00)) + bytes(std::uint16_t(0xC100)); // 1 and -2.5
    const auto operation = [](int kind, std::vector<int> inputs, int output, const std::string& options) {
        return table({kind, numbers(inputs), numbers({output}), none, options});
    };
    const std::string graph = table(
        {tables({value({1, 2, 2, 1}, 0, 0), value({2, 1, 1, 1}, 1, 1), value({2, 1, 1, 1}, 0, 0),
                 value({2}, 0, 2), value({1, 2, 2, 2}, 0, 0), value({2}, 2, 3), value({1, 3, 3, 2}, 0, 0),
                 value({1, 3, 3, 2}, 0, 0)}),
         numbers({0}), numbers({7}),
         tables({operation(0, {1}, 2, table({})), operation(1, {0, 2, 3}, 4, table({0, 1, 1, 1})),
                 operation(2, {4, 5}, 6, table({none, none, 0, 1})), operation(3, {6}, 7, table({}))})});
    const std::string buffers = tables({table({}), table({text(halves)}), table({floats({0.5f, 4})}),
                                        table({text(bytes(std::int32_t(3)) + bytes(std::int32_t(3)))})});
    return bytes(std::uint32_t(8)) + "TFL3" +
           table({3, tables({code(6), code(3), code(23), code(14)}), tables({graph}), none, buffers});
}

/// Whether a file is taken. What is taken must run; what is not, must say why.
bool taken(const std::string& file) {
    try {
        const Network network(GraphFile::read(file));
        Network::Run run(network);
        std::fill(run.input().begin(), run.input().end(), 0.5f);
        return !run.output().empty();
    } catch (const Problem& problem) {
        EXPECT_FALSE(problem.message().empty());
        return false;
    }
}

}

TEST(GraphFile, aFileIsReadAsItStands) {
    const Graph graph = GraphFile::read(smallFile());
    ASSERT_EQ(graph.layers.size(), 3u);
    EXPECT_EQ(graph.layers[0].kind, Graph::Layer::Kind::convolution);
    EXPECT_EQ(graph.layers[0].activation, Graph::Activation::relu);
    EXPECT_THAT(graph.layers[0].weights, testing::ElementsAre(1, -2.5f));
    EXPECT_THAT(graph.layers[0].bias, testing::ElementsAre(0.5f, 4));
    EXPECT_EQ(graph.layers[1].kind, Graph::Layer::Kind::resize);
    EXPECT_EQ(graph.layers[2].activation, Graph::Activation::logistic);
    EXPECT_EQ(graph.values[std::size_t(graph.output)], (Graph::Shape{3, 3, 2}));
    EXPECT_TRUE(taken(smallFile()));
}

TEST(GraphFile, aDamagedFileIsRefusedOrHarmless) {
    const std::string whole = smallFile();
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_TRUE(!taken(whole.substr(0, length)) || length + 8 > whole.size()) << length;
    int refused = 0;
    for (std::size_t bit = 0; bit < whole.size() * 8; ++bit) {
        std::string damaged = whole;
        damaged[bit / 8] ^= char(1 << bit % 8);
        refused += !taken(damaged);
    }
    EXPECT_GT(refused, int(whole.size())) << "of " << whole.size() * 8;
    std::minstd_rand random;
    for (int i = 0; i < 3000; ++i) {
        std::string damaged = whole;
        for (int k = 0; k < 4; ++k) damaged[random() % damaged.size()] = char(random() % 3 ? 0xFF : random());
        taken(damaged);
    }
}
