#include "core/ai/Toolkit.h"

#include <gmock/gmock.h>

using namespace murbo;

TEST(Toolkit, eachKitStandsUnderItsId) {
    ASSERT_EQ(Toolkit::kits().size(), rawTexts(Kit::ID{}).size());
    for (const auto& kit : Toolkit::kits()) {
        EXPECT_EQ(&Toolkit::kit(kit.id), &kit);
        EXPECT_EQ(kit.overMCP, !kit.request.empty()) << kit.name;
        EXPECT_THAT(kit.does, testing::Not(testing::HasSubstr("Mac"))) << "it runs on other machines";
    }
}
