#include "app/options/Arguments.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Arguments, anOptionTakesTheWordsAfterIt) {
    const Arguments words({"murbo", "--fps", "30", "--still", "p", "V1", "--fps", "60", "--last"});
    EXPECT_TRUE(words.has("--last"));
    EXPECT_EQ(words.value("--fps"), "30") << "the first counts";
    EXPECT_EQ(words.value("--last"), std::nullopt);
    EXPECT_EQ(words.after("--still", 2)->front(), "p");
    EXPECT_EQ(words.after("--fps", 8), std::nullopt);
    EXPECT_EQ(words.after("--none", 0), std::nullopt);
    EXPECT_EQ(Arguments::without({"--srt"}, {"--fps"}, {"p", "--fps", "30", "--srt", "V1", "--x", "--fps"}),
              (std::vector<std::string>{"p", "V1", "--x"}));
}
