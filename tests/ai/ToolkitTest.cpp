#include "core/ai/Toolkit.h"
#include "platform/base/RawText.h"
#include "tests/Approved.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

using namespace murbo;

TEST(Toolkit, eachKitStandsUnderItsIdAsApproved) {
    ASSERT_EQ(Toolkit::kits().size(), rawTexts(Kit::ID{}).size());
    std::string text;
    for (const auto& kit : Toolkit::kits()) {
        EXPECT_EQ(&Toolkit::kit(kit.id), &kit);
        EXPECT_EQ(kit.overMCP, !kit.request.empty()) << kit.name;
        EXPECT_THAT(kit.does, testing::Not(testing::HasSubstr("Mac"))) << "it runs on other machines";
        text += fmt::format("== {}, {}, of {}{}{}\n{}\n{}\n{}\n{}\n", rawText(kit.id), kit.name,
                            rawText(kit.scope), kit.inApp ? ", in the program" : "",
                            kit.overMCP ? ", by AI apps" : "", kit.does, kit.place, kit.done, kit.request);
    }
    expectApproved("ai/approved/Toolkit.txt", text);
}
