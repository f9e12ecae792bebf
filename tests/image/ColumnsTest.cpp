#include "platform/image/kernels/Columns.h"

#include <gtest/gtest.h>

using namespace murbo;
using Kernels::Columns;
using Kernels::Line;
using Kernels::Taps;

namespace {

/// Each output's samples and weights stand where the kernels look for them.
void expectLaidOut(const Columns& columns, const std::string& what) {
    const int together = columns.together();
    ASSERT_EQ(columns.groups.size(),
              (columns.taps.outputs.size() + std::size_t(together) - 1) / std::size_t(together))
        << what;
    for (std::size_t at = 0; at < columns.taps.outputs.size(); ++at) {
        const auto& output = columns.taps.outputs[at];
        const auto& group = columns.groups[at / std::size_t(together)];
        const int place = int(at) % together;
        if (columns.values == 1) {
            EXPECT_EQ(group.first[0] + group.bytes[2 * place] / 2, output.first) << what << at;
            EXPECT_EQ(group.bytes[2 * place + 1], group.bytes[2 * place] + 1) << what << at;
        } else {
            EXPECT_EQ(group.first[place], output.first) << what << at;
        }
        const auto* weights = &columns.taps.weights[std::size_t(output.weights)];
        for (int lane = place * 8 / together; lane < (place + 1) * 8 / together; ++lane) {
            EXPECT_EQ(group.second[lane], output.count > 1 ? weights[1] : 0) << what << at;
            EXPECT_EQ(group.third[lane], output.count > 2 ? weights[2] : 0) << what << at;
        }
    }
}

}

TEST(Columns, standInGroupsOfEightSamplesOrTwoPixels) {
    for (const int values : {1, 4})
        for (const double step : {0.3, -0.7, 1.0, 1.37, 1.75})
            for (const int count : {1, 2, 7, 8, 9, 31}) {
                const Columns columns(Line::through(step < 0 ? 40.3 : -1.3, step), 0, count, 0, 60, values);
                EXPECT_EQ(columns.taps.sum, Taps::Sum::differences);
                EXPECT_EQ(columns.pairs, columns.taps.maxCount <= 2);
                expectLaidOut(columns, std::to_string(step) + " x " + std::to_string(values) + " of " +
                                           std::to_string(count) + ": ");
            }
}

TEST(Columns, aLoneLastPixelIsReadTwice) {
    const Columns columns(Line::through(3, 1), 0, 3, 0, 60, 4);
    ASSERT_EQ(columns.groups.size(), 2u);
    EXPECT_EQ(columns.groups[1].first[1], columns.groups[1].first[0]);
}

TEST(Columns, wideStepsAreSummedByProducts) {
    const Columns columns(Line::through(0, 1.76), 0, 30, 0, 60, 1);
    EXPECT_EQ(columns.taps.sum, Taps::Sum::products);
    EXPECT_TRUE(columns.groups.empty());
}

TEST(Columns, areNearWhereEightSamplesHoldAGroup) {
    EXPECT_TRUE(Columns(Line::through(0, 0.5), 0, 32, 0, 60, 1).near);
    EXPECT_FALSE(Columns(Line::through(0, 1.7), 0, 32, 0, 60, 1).near);
    EXPECT_TRUE(Columns(Line::through(0, 1.7), 0, 3, 0, 60, 1).near) << "few outputs";
}
