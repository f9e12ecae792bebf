#include "core/ai/Prices.h"
#include "tests/FakeServer.h"
#include "tests/ai/OwnSettings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;
using testing::HasSubstr;
using testing::Not;

namespace {

/// An OpenRouter on this machine that has one answer.
struct Served {
    explicit Served(const std::string& body)
        : server([=](const std::string&) { return FakeServer::reply(200, body); }) {}

    FakeServer server;
    Environment address{"MURBO_OPENROUTER", server.base};
};

}

TEST(Prices, areFetchedOnceADayOrForAModelThatIsNew) {
    ownSettings();
    const std::string one =
        R"({"data": [{"id": "a", "pricing": {"prompt": "0.000001", "completion": "0.000005"}}]})";
    {
        Served broken(R"({"models": []})");
        Prices::refresh("a");
        EXPECT_EQ(Prices::price("a"), std::nullopt);
    }
    {
        Served served(one);
        Prices::refresh("a");
        EXPECT_EQ(Prices::price("a"), (Price{0.000001, 0.000005}));
        EXPECT_THAT(served.server.request(), Not(HasSubstr("Authorization")));
    }
    Served later(R"({"data": []})");
    Prices::refresh("a");
    EXPECT_EQ(later.server.request(), "") << "the list is a moment old";
    Prices::refresh("b");
    EXPECT_NE(later.server.request(), "") << "the list does not know b";
    EXPECT_EQ(Prices::price("a"), (Price{0.000001, 0.000005})) << "a list without prices replaces none";
}
