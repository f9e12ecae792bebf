#include "core/ai/Conversation.h"
#include "tests/ai/Told.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Conversation, oneRequestNeverGoesOn) {
    const Told told;
    Conversation::Telling telling(told.project);
    telling.ask.maxTokens = 7;
    Conversation conversation(std::move(telling));
    EXPECT_FALSE(conversation.goesOn(R"({"read": ["C01"]})"));
    EXPECT_EQ(conversation.ask().maxTokens, 7);
    EXPECT_EQ(conversation.reading(), nullptr);
    EXPECT_EQ(conversation.project(), told.project);
}

TEST(Conversation, aReadingLoopDoes) {
    const Told told;
    Conversation conversation(told.reading());
    EXPECT_TRUE(conversation.goesOn(R"({"read": ["C01"]})"));
    EXPECT_EQ(conversation.ask().messages.size(), 4u);
    EXPECT_EQ(tags(conversation.reading()->asked()), std::vector<std::string>{"C01"});
    EXPECT_TRUE(conversation.said().tagged("C01.01"));
}
