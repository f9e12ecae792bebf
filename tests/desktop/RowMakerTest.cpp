#include "app/desktop/inspector/RowMaker.h"
#include "core/model/ShotMove.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

using namespace murbo;

TEST(RowMaker, levelsGoToDecibelsAndBack) {
    for (const auto& [factor, decibels] :
         {std::pair{1.0, 0.0}, {0.5, -6.0}, {0.0, -60.0}, {1e-9, -60.0}, {2.0, 6.0}})
        EXPECT_NEAR(RowMaker::level("l", "Level", factor, 1, 6).current.toDouble(), decibels, 0.05) << factor;
    EXPECT_EQ(RowMaker::factor(-60), 0);
    EXPECT_EQ(RowMaker::factor(0), 1);
    for (double decibels = -59.5; decibels <= 6; decibels += 0.5)
        EXPECT_NEAR(RowMaker::level("l", "", RowMaker::factor(decibels), 1, 6).current.toDouble(), decibels,
                    1e-6)
            << "what was set is shown";
}

TEST(RowMaker, aNumberThatIsNoneShowsItsStandard) {
    for (const auto value : {std::optional<double>(), std::optional(std::nan("")),
                             std::optional(std::numeric_limits<double>::infinity())}) {
        const auto row = RowMaker::number("n", "N", value, {.from = 0, .to = 4, .standard = 1});
        EXPECT_EQ(row.current, 1.0);
        EXPECT_FALSE(row.changed);
    }
    EXPECT_TRUE(RowMaker::number("n", "N", 1.5, {.from = 0, .to = 4, .standard = 1}).changed);
}

TEST(RowMaker, choosesAmongRawTexts) {
    const auto row = RowMaker::oneOf<ShotMove>("m", "Move", std::string("pan-left"), "None");
    EXPECT_EQ(row.options[row.current.toInt()], "Pan Left");
    EXPECT_EQ(RowMaker::rawAt<ShotMove>(row.current), "pan-left");
    EXPECT_EQ(RowMaker::oneOf<ShotMove>("m", "Move", std::string("moonwalk"), "None").current, 0);
    for (const int place : {0, -3, 99}) EXPECT_EQ(RowMaker::rawAt<ShotMove>(place), std::nullopt);
}
