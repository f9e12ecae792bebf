#include "core/intake/samples/Picker.h"

#include <gmock/gmock.h>

using namespace murbo;
using Move = Samples::Move;
using Behaviour = PickRules::Behaviour;
using testing::ElementsAre, testing::IsEmpty;

namespace {

const UUID source = UUID::make();

/// Four samples a second that are equally good in every measure.
Samples samples(const std::vector<std::int64_t>& good) {
    return {4, good, good, good, std::vector<Move>(good.size(), Move::still)};
}

std::vector<std::int64_t> stretchOf(std::initializer_list<std::pair<int, int>> runs) {
    std::vector<std::int64_t> values;
    for (const auto& [count, value] : runs) values.insert(values.end(), count, value);
    return values;
}

std::vector<std::pair<double, double>> times(const std::vector<Pick>& picks) {
    std::vector<std::pair<double, double>> times;
    for (const auto& pick : picks) times.emplace_back(pick.start, pick.end);
    return times;
}

}

TEST(Picker, scoresByWeightsAndBySound) {
    Samples given = samples({255, 102, 102, 102});
    given.moves[0] = Move::pan;
    // 0 to 0.25 s, 0.25 to 0.5 s …: the second sample is voiced, the third loud.
    const Heard heard{{0, 0, 0, 0, 0, 0, 200, 0, 0, 0}, 10, {{0.3, 0.5}}};
    const auto score = [&](PickRules rules) { return Picker::scores(given, heard, rules); };

    EXPECT_THAT(score({}), ElementsAre(1.0, 0.55, 0.55, 0.4));
    EXPECT_THAT(score({.voice = Behaviour::include, .loud = Behaviour::exclude}),
                ElementsAre(1.0, 1.0, std::nullopt, 0.4));
    EXPECT_THAT(score({.voice = Behaviour::ignore, .loud = Behaviour::avoid}),
                ElementsAre(1.0, 0.4, 0.25, 0.4));
    EXPECT_THAT(score({.sharpness = 0,
                       .exposure = 0,
                       .steadiness = 0,
                       .voice = Behaviour::include,
                       .loud = Behaviour::ignore}),
                ElementsAre(0.0, 1.0, 0.0, 0.0));
    EXPECT_THAT(score({.moves = std::set<Move>{}}),
                ElementsAre(std::nullopt, std::nullopt, std::nullopt, std::nullopt));
    EXPECT_FALSE(score({.moves = std::set{Move::still}})[0]);
}

TEST(Picker, joinsGoodMomentsAndKeepsTheBestWindow) {
    const Heard silent;
    const auto pick = [&](const Samples& given, PickRules rules = {}) {
        return times(Picker::picks(source, given, silent, rules));
    };
    using Times = std::vector<std::pair<double, double>>;
    EXPECT_EQ(pick(samples(stretchOf({{8, 200}, {2, 0}, {8, 200}}))), (Times{{0, 4.5}}));
    EXPECT_EQ(pick(samples(stretchOf({{8, 200}, {3, 0}, {8, 200}}))), (Times{{0, 2}, {2.75, 4.75}}));
    EXPECT_EQ(pick(samples(stretchOf({{7, 200}, {9, 0}}))), Times{});
    EXPECT_EQ(pick(samples(stretchOf({{40, 200}}))), (Times{{0, 10}}));
    EXPECT_EQ(pick(samples(stretchOf({{20, 180}, {40, 250}, {20, 180}}))), (Times{{5, 15}}));
    EXPECT_EQ(pick(samples(stretchOf({{60, 200}}))), (Times{{0, 10}}));
    EXPECT_EQ(pick(samples(stretchOf({{20, 180}, {40, 250}}))), (Times{{5, 15}})) << "the last window";
    EXPECT_EQ(pick(samples({})), Times{});
}

TEST(Picker, spreadsOverAllFootage) {
    const UUID first = UUID::make(), second = UUID::make();
    const std::vector<Picker::Length> sources{{first, 10}, {second, 20}};
    std::mt19937_64 generator(1);
    // A pick across the border of two slots belongs to that of its middle.
    const std::vector<Pick> across{{.source = second, .start = 9, .end = 12, .score = 0.1}};
    EXPECT_EQ(Picker::spread(sources, 10, 2, across, generator)[2], across[0]);

    EXPECT_THAT(Picker::spread(sources, 0, 2, across, generator), IsEmpty());
    EXPECT_THAT(Picker::spread(sources, 10, -1, across, generator), IsEmpty());
    EXPECT_THAT(Picker::spread({}, 10, 2, across, generator), IsEmpty());
    EXPECT_THAT(Picker::spread(sources, 1e-12, 2, across, generator), IsEmpty());
    EXPECT_THAT(Picker::spread({{first, 1}}, 10, 2, {}, generator), IsEmpty()); // too short to hold one
}
