#include "platform/base/Files.h"
#include "platform/base/Problem.h"
#include "platform/vision/GraphFile.h"
#include "platform/vision/Network.h"

#include <cstring>
#include <random>
#include <variant>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

// Pieces of a FlatBuffer. They point only forward and by distance, so what lies under a table may stand
// after it.

template <typename T>
std::string bytes(T number) {
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

std::string list(std::size_t count, const std::string& content) {
    return bytes(std::uint32_t(count)) + content;
}

std::string text(const std::string& content) {
    return list(content.size(), content);
}

std::string numbers(const std::vector<int>& content) {
    std::string result;
    for (const int number : content) result += bytes(std::int32_t(number));
    return list(content.size(), result);
}

std::string floats(const std::vector<float>& content) {
    return text({reinterpret_cast<const char*>(content.data()), content.size() * 4});
}

std::string tables(const std::vector<std::string>& content) {
    std::string places, behind;
    for (std::size_t i = 0; i < content.size(); ++i) {
        places += bytes(std::uint32_t(4 * (content.size() - i) + behind.size()));
        behind += content[i];
    }
    return list(content.size(), places + behind);
}

/// Each field a number, or what it points to; nothing where it is left out.
std::string table(const std::vector<std::variant<std::monostate, int, std::string>>& fields) {
    const std::size_t start = 4 + 4 * fields.size();
    std::string result = bytes(-std::int32_t(start)), behind = bytes(std::uint16_t(4 + 2 * fields.size()));
    behind += bytes(std::uint16_t(start));
    for (std::size_t i = 0; i < fields.size(); ++i)
        behind += bytes(std::uint16_t(fields[i].index() == 0 ? 0 : 4 + 4 * i));
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const auto* under = std::get_if<std::string>(&fields[i]);
        const auto* number = std::get_if<int>(&fields[i]);
        result += bytes(std::uint32_t(under ? start - 4 - 4 * i + behind.size() : number ? *number : 0));
        if (under) behind += *under;
    }
    return result + behind;
}

constexpr std::monostate none;

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
