#include "core/ai/Pricing.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Pricing, saysWhatItWillBeAbout) {
    const std::pair<double, const char*> cases[] = {
        {0, "under 1¢"},       {0.0049, "under 1¢"}, {0.005, "about 1¢"}, {0.994, "about 99¢"},
        {0.996, "about 100¢"}, {1, "about $1.00"},   {-1, "under 1¢"}};
    for (const auto& [dollars, words] : cases) EXPECT_EQ(Pricing::about(dollars), words) << dollars;
    EXPECT_EQ(Pricing::about(std::nullopt), "");
    EXPECT_NEAR((Price{0.000001, 0.000005}.estimate(std::string(1000, 'x'), 2000)), 0.0107, 1e-12);
}

TEST(Pricing, anEstimateCountsAllWordsAndPictures) {
    const Price price{0.001, 0.01};
    Ask ask{.messages = {{.content = "abc", .pictures = {"1", "2"}}, {.content = "defg", .pictures = {"3"}}},
            .thinking = 500};
    const double words = price.estimate("abc\ndefg", 2000);
    EXPECT_NEAR(Pricing::estimate(price, ask), words + 3 * 800 * 0.001, 1e-9);
    EXPECT_EQ(Pricing::estimate(std::optional(price), ask), Pricing::estimate(price, ask));
    EXPECT_EQ(Pricing::estimate(std::nullopt, ask), std::nullopt);
}

TEST(Pricing, asksBeforeItCostsAnything) {
    using enum Pricing::Asked;
    EXPECT_EQ(Pricing::confirmation(request, 0.124, "m"), "About 12¢, from your OpenRouter key, on m.");
    EXPECT_EQ(
        Pricing::confirmation(reading, 0.001, "m"),
        "Under 1¢ to start, from your OpenRouter key, on m. Each clip it asks to read costs a little more; "
        "Activity says what it came to.");
    EXPECT_EQ(Pricing::confirmation(reading, std::nullopt, "m"),
              "From your OpenRouter key, on m. Each clip it asks to read costs a little more; Activity says "
              "what it "
              "came to.");
    EXPECT_EQ(Pricing::confirmation(describing, std::nullopt, "m"),
              "From your OpenRouter key, on m. Its cost is not known yet; Activity will say what it was.");
}

TEST(Pricing, readsAListOfModelsElementByElement) {
    const auto found = Pricing::prices(R"({"data": [
        {"id": "a", "pricing": {"prompt": "0.5", "completion": "1"}},
        {"id": "free", "pricing": {"prompt": "-1", "completion": "-1"}},
        {"id": "a", "pricing": {"prompt": "2", "completion": "3"}},
        {"id": 5, "pricing": {"prompt": "2", "completion": "3"}}, {"id": "b"}, 7, null,
        {"id": "c", "pricing": {"prompt": 2, "completion": "3"}},
        {"id": "d", "pricing": {"prompt": "x", "completion": "3"}}]})");
    EXPECT_EQ(found, (std::map<std::string, Price>{{"a", {2, 3}}, {"free", {-1, -1}}}));
    for (const char* none : {"", "[]", R"({"data": {}})", "{"})
        EXPECT_TRUE(Pricing::prices(none).empty()) << none;
}
