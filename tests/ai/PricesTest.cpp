#include "core/ai/Prices.h"
#include "tests/ScriptedModel.h"
#include "tests/ai/OwnSettings.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::HasSubstr, testing::Not;

TEST(Prices, areFetchedOnceADayOrForAModelThatIsNew) {
    ownSettings();
    const std::string one =
        R"({"data": [{"id": "a", "pricing": {"prompt": "0.000001", "completion": "0.000005"}}]})";
    {
        Served broken(200, R"({"models": []})");
        Prices::refresh("a");
        EXPECT_EQ(Prices::price("a"), std::nullopt);
    }
    {
        Served served(200, one);
        Prices::refresh("a");
        EXPECT_EQ(Prices::price("a"), (Price{0.000001, 0.000005}));
        EXPECT_THAT(served.server.request(), Not(HasSubstr("Authorization")));
    }
    Served later(200, R"({"data": []})");
    Prices::refresh("a");
    EXPECT_EQ(later.server.request(), "") << "the list is a moment old";
    Prices::refresh("b");
    EXPECT_NE(later.server.request(), "") << "the list does not know b";
    EXPECT_EQ(Prices::price("a"), (Price{0.000001, 0.000005})) << "a list without prices replaces none";
}
