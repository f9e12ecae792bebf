#include "core/intake/samples/Heard.h"

#include <cmath>
#include <limits>

#include <gmock/gmock.h>

using namespace murbo;
using testing::ElementsAre, testing::IsEmpty;

namespace {

/// A quiet minute with levels of its own put in from a moment on.
Heard quietBut(std::vector<std::pair<double, int>> loud) {
    Heard heard{std::vector<std::uint8_t>(600, 50), 10, {}};
    for (const auto& [time, steps] : loud)
        for (int step = 0; step < steps; ++step) heard.levels[std::lround(time * 10) + step] = 90;
    return heard;
}

MATCHER_P2(isStretch, start, end, "") {
    return std::abs(arg.from - start) < 1e-6 && std::abs(arg.to - end) < 1e-6;
}

}

TEST(Heard, joinsLoudStretchesAcrossShortGapsAndDropsKnocks) {
    const Stretch all{0, 60};
    // Half a second apart is one stretch, more is two; one step alone is a knock.
    EXPECT_THAT(quietBut({{10, 3}, {10.8, 3}}).loudStretches(all, 50), ElementsAre(isStretch(10.0, 11.1)));
    EXPECT_THAT(quietBut({{10, 3}, {10.9, 3}}).loudStretches(all, 50),
                ElementsAre(isStretch(10.0, 10.3), isStretch(10.9, 11.2)));
    EXPECT_THAT(quietBut({{10, 1}}).loudStretches(all, 50), IsEmpty());
    EXPECT_THAT(quietBut({{10, 5}}).loudStretches(all, 51), IsEmpty());
    EXPECT_THAT(quietBut({{10, 10}}).loudStretches({9, 10.35}, 50), ElementsAre(isStretch(10.0, 10.35)));
    EXPECT_THAT(quietBut({{59, 10}}).loudStretches({0, 1000}, 50), ElementsAre(isStretch(59.0, 60.0)));
}

TEST(Heard, tellsWhatIsUsualAndWhatStandsOut) {
    const Heard heard{{1, 9, 3, 9, 5}, 10, {}};
    EXPECT_EQ(heard.usual(), 5);
    EXPECT_EQ(heard.usual({0, 0.25}), 3);
    EXPECT_EQ(heard.usual({5, 9}), 0);
    EXPECT_EQ(heard.usual({std::numeric_limits<double>::quiet_NaN(), -1e300}), 0);
    EXPECT_THAT(heard.peaks({0, 0.35}), ElementsAre(Heard::Peak{0.1, 9}, Heard::Peak{0.3, 9},
                                                    Heard::Peak{0.2, 3}, Heard::Peak{0, 1}));
}

TEST(Heard, aMomentIsLoudOrVoicedFromItsStartUpToItsEnd) {
    const Heard heard{{90, 50, 50, 50, 91}, 10, {{1, 2}}};
    const std::pair<double, bool> loud[] = {{-0.01, false}, {0, true},    {0.09, true},  {0.1, false},
                                            {0.39, false},  {0.41, true}, {0.499, true}, {0.5, false},
                                            {9, false},     {NAN, false}};
    for (const auto& [time, is] : loud) EXPECT_EQ(heard.isLoud(time, 50), is) << time;
    EXPECT_FALSE(heard.isLoud(0.41, 52));
    EXPECT_TRUE(heard.isVoiced(1) && heard.isVoiced(1.99) && !heard.isVoiced(2) && !heard.isVoiced(0.99));
}
