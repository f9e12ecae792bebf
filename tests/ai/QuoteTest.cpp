#include "core/ai/Quote.h"
#include "platform/store/SettingsStore.h"
#include "tests/ScriptedModel.h"
#include "tests/ai/OwnSettings.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Quote, fetchesPricesOnlyWhereSomebodyIsAsked) {
    ownSettings();
    ScriptedModel model;
    const Environment address("MURBO_OPENROUTER", model.base());
    SettingsStore::standard().set("lightModel", std::string("anthropic/claude-haiku-5.5"));
    SettingsStore::standard().remove("prices");
    const auto dollars = [](const Price& price) { return price.input * 100'000; };
    const auto blind = Quote::of(Pricing::Asked::request, Ask::Model::cheap, dollars, false);
    EXPECT_EQ(blind.text, "From your OpenRouter key, on anthropic/claude-haiku-5.5.");
    EXPECT_EQ(model.priceLists(), 0);
    const auto fresh = Quote::of(Pricing::Asked::request, Ask::Model::cheap, dollars, true);
    EXPECT_EQ(fresh.text, "About 10¢, from your OpenRouter key, on anthropic/claude-haiku-5.5.");
    EXPECT_FALSE(fresh.refusal);
    Quote::of(Pricing::Asked::request, Ask::Model::cheap, dollars, true);
    EXPECT_EQ(model.priceLists(), 1) << "a list is good for a day";

    SettingsStore::standard().set("spendCap", 0.0);
    EXPECT_TRUE(Quote::of(Pricing::Asked::request, Ask::Model::cheap, dollars, false).refusal);
    SettingsStore::standard().remove("spendCap");
}
