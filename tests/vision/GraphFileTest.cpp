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
std::string smallFile(int firstHalf = 0x3C00) {
    const auto code = [](int number) { return table({number, none, 1, number}); };
    const auto value = [](std::vector<int> sides, int type, int buffer) {
        return table({numbers(sides), type, buffer});
    };
    const std::string halves = bytes(std::uint16_t(firstHalf)) + bytes(std::uint16_t(0xC100)); // 1 and -2.5
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

TEST(GraphFile, aWeightOf16BitsThatIsNoNumberIsRefused) {
    for (const int number : {0x0001, 0x7BFF, 0xFBFF}) EXPECT_TRUE(taken(smallFile(number))) << number;
    for (const int none : {0x7C00, 0xFC00, 0x7C01, 0x7E00, 0xFFFF})
        EXPECT_FALSE(taken(smallFile(none))) << none;
}

namespace {

struct Constant {
    std::vector<int> sides;
    int type = 0; ///< 0 for floats, 2 for whole numbers
    std::string content;
};

/// A network of one layer: its number in the schema, what it turns into what, its options and constants.
std::string oneLayer(int kind, const std::vector<int>& from, const std::vector<int>& to,
                     const std::string& options, const std::vector<Constant>& constants = {}) {
    std::vector<std::string> tensors{table({numbers(from), 0, 0}), table({numbers(to), 0, 0})};
    std::vector<std::string> buffers{table({})};
    std::vector<int> inputs{0};
    for (const auto& [sides, type, content] : constants) {
        inputs.push_back(int(tensors.size()));
        tensors.push_back(table({numbers(sides), type, int(buffers.size())}));
        buffers.push_back(table({content}));
    }
    const auto graph = table({tables(tensors), numbers({0}), numbers({1}),
                              tables({table({0, numbers(inputs), numbers({1}), none, options})})});
    return bytes(std::uint32_t(8)) + "TFL3" +
           table({3, tables({table({kind, none, 1, kind})}), tables({graph}), none, tables(buffers)});
}

Constant zeros(std::vector<int> sides) {
    int count = 1;
    for (const int side : sides) count *= side;
    return {sides, 0, floats(std::vector<float>(std::size_t(count), 0.5f))};
}

Constant whole(const std::vector<int>& content) {
    std::string inside;
    for (const int number : content) inside += bytes(std::int32_t(number));
    return {{int(content.size())}, 2, text(inside)};
}

}

TEST(GraphFile, aWindowStepsAcrossAndDownAndStandsInTheMiddle) {
    // Padded, steps across, steps down, activation, and what comes of 8 rows of 6 pixels.
    struct Case {
        int padding, across, down, fused, high, wide, above, before;
    };
    for (const int kind : {3, 4})
        for (const auto& [padding, across, down, fused, high, wide, above, before] :
             {Case{0, 2, 1, 0, 8, 3, 1, 0},
              {0, 1, 2, 1, 4, 6, 0, 1},
              {1, 2, 1, 3, 6, 2, 0, 0},
              {1, 1, 3, 0, 2, 4, 0, 0}}) {
            const bool depthwise = kind == 4;
            const auto options =
                depthwise ? table({padding, across, down, 1, fused}) : table({padding, across, down, fused});
            const auto file = oneLayer(kind, {1, 8, 6, 2}, {1, high, wide, depthwise ? 2 : 5}, options,
                                       {zeros({depthwise ? 1 : 5, 3, 3, 2}), zeros({depthwise ? 2 : 5})});
            const auto layer = GraphFile::read(file).layers.at(0);
            EXPECT_EQ(std::tuple(layer.strideAcross, layer.strideDown, layer.above, layer.before),
                      std::tuple(across, down, above, before))
                << kind;
            EXPECT_EQ(int(layer.activation),
                      fused == 3 ? int(Graph::Activation::relu6)
                                 : int(fused == 1 ? Graph::Activation::relu : Graph::Activation::none));
            EXPECT_TRUE(taken(file));
        }
    const auto windowed = [](std::vector<int> sides, const std::string& options) {
        return taken(oneLayer(4, {1, 4, 4, 2}, {1, 4, 4, 2}, options, {zeros(sides), zeros({2})}));
    };
    EXPECT_TRUE(windowed({1, 3, 3, 2}, table({0, 1, 1, 1, 0, 1, 1})));
    EXPECT_FALSE(windowed({1, 3, 3, 2}, table({0, 1, 1, 1, 0, 2, 1}))) << "gaps across";
    EXPECT_FALSE(windowed({1, 3, 3, 2}, table({0, 1, 1, 1, 0, 1, 2}))) << "gaps down";
    EXPECT_FALSE(windowed({1, 3, 3, 2}, table({0, 1, 1, 2}))) << "two results of a channel";
    EXPECT_FALSE(windowed({1, 3, 3, 2}, table({0, 1, 1, 1, 2}))) << "an activation of another kind";
    EXPECT_FALSE(windowed({1, 3, 3, 1}, table({0, 1, 1, 1})));
    EXPECT_FALSE(windowed({1, 5, 3, 2}, table({1, 1, 1, 1}))) << "larger than its picture";
}

TEST(GraphFile, aMeanIsOfTheWholePicture) {
    const auto pooled = [](const std::string& options) {
        return taken(oneLayer(1, {1, 3, 5, 2}, {1, 1, 1, 2}, options));
    };
    EXPECT_TRUE(pooled(table({1, 1, 1, 5, 3, 0})));
    EXPECT_TRUE(pooled(table({0, 5, 3, 5, 3, 0})));
    EXPECT_FALSE(pooled(table({1, 1, 1, 3, 5, 0}))) << "turned";
    EXPECT_FALSE(pooled(table({0, 5, 2, 5, 3, 0})) || pooled(table({0, 4, 3, 5, 3, 0})))
        << "more than one step";
    const auto mean = [](const std::vector<int>& axes) {
        return taken(oneLayer(40, {1, 3, 5, 2}, {1, 1, 1, 2}, table({}), {whole(axes)}));
    };
    EXPECT_TRUE(mean({1, 2}) && mean({2, 1}));
    EXPECT_FALSE(mean({1}) || mean({1, 3}) || mean({0, 1}) || mean({1, 2, 2}));
    const auto resized = [](const std::vector<int>& sides, const std::string& options) {
        return taken(oneLayer(23, {1, 3, 5, 2}, {1, 6, 7, 2}, options, {whole(sides)}));
    };
    EXPECT_TRUE(resized({6, 7}, table({none, none, 0, 1})));
    EXPECT_FALSE(resized({7, 6}, table({none, none, 0, 1})) || resized({6, 7}, table({none, none, 1, 1})) ||
                 resized({6, 7}, table({none, none, 0, 0})) || resized({6}, table({none, none, 0, 1})));
    using Activation = Graph::Activation;
    for (const auto& [kind, activation] : {std::pair{14, Activation::logistic},
                                           {19, Activation::relu},
                                           {21, Activation::relu6},
                                           {117, Activation::hardSwish}})
        EXPECT_EQ(
            GraphFile::read(oneLayer(kind, {1, 3, 5, 2}, {1, 3, 5, 2}, table({}))).layers.at(0).activation,
            activation);
    EXPECT_FALSE(taken(oneLayer(5, {1, 3, 5, 2}, {1, 3, 5, 2}, table({}))));
    EXPECT_FALSE(taken(oneLayer(19, {1, 3, 5, 2}, {1, 5, 3, 2}, table({})))) << "a result of another size";
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
