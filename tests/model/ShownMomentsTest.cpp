#include "core/model/ShownMoments.h"
#include "core/model/VideoTime.h"

#include <cmath>
#include <random>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// The rule, as it is said: the first cut in video order that shows the moment.
std::optional<double> plainly(const UUID& source, const List<Cut>& cuts, double at) {
    double start = 0;
    for (const Cut& cut : cuts) {
        if (cut.source == source && VideoTime::shows(cut, at)) return start + std::max(at - cut.start, 0.0);
        start += cut.length();
    }
    return std::nullopt;
}

}

TEST(ShownMoments, areThoseOfTheFirstCutThatShowsThem) {
    const UUID sources[] = {UUID::make(), UUID::make(), UUID::make()};
    std::mt19937 random(1);
    const auto below = [&](int bound) { return int(random() % unsigned(bound)); };
    int found = 0;
    for (int round = 0; round < 300; ++round) {
        std::vector<Cut> cuts;
        // On a coarse grid, so that cuts often meet, repeat and hide one another; some are empty or reversed.
        for (int left = below(12); left > 0; --left) {
            const double start = below(20) * 0.5;
            cuts.push_back(
                {.source = sources[below(2)], .start = start, .end = start + (below(9) - 1) * 0.5});
        }
        if (below(10) == 0) cuts.push_back({.source = sources[0], .start = NAN, .end = 3});
        if (below(10) == 0) cuts.push_back({.source = sources[1], .start = -HUGE_VAL, .end = 5});
        const List<Cut> list(cuts);
        const ShownMoments moments(list);
        for (int at = -2; at < 30; ++at)
            for (const double off : {-0.0011, -0.001, -0.0009, 0.0, 0.25, double(NAN)})
                for (const UUID& source : sources) {
                    const auto expected = plainly(source, list, at * 0.5 + off);
                    const auto actual = moments.on(source, at * 0.5 + off);
                    ASSERT_EQ(actual.has_value(), expected.has_value()) << at * 0.5 + off;
                    const bool same = !expected || *actual == *expected || std::isnan(*expected);
                    ASSERT_TRUE(same) << *actual << " for " << *expected;
                    found += expected.has_value();
                }
    }
    EXPECT_GT(found, 10'000);
}

TEST(ShownMoments, areFoundHoweverManyCutsThereAre) {
    const UUID source = UUID::make();
    std::vector<Cut> cuts;
    for (int each = 0; each < 100'000; ++each)
        cuts.push_back({.source = source, .start = double(each), .end = each + (each % 2 ? 0.5 : 1e6)});
    const ShownMoments moments{List<Cut>(cuts)};
    int found = 0;
    for (int each = 0; each < 100'000; ++each) found += moments.on(source, each - 0.3).has_value();
    EXPECT_EQ(found, 99'999);
}
