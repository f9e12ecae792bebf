#include "core/ai/Reading.h"
#include "tests/ai/Told.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::ElementsAre, testing::EndsWith, testing::HasSubstr, testing::Not;

TEST(Reading, opensWithALinePerClipAndTheLinesThatAreGiven) {
    const Told told;
    const auto unread = told.reading();
    const auto& blank = unread.ask();
    ASSERT_EQ(blank.messages.size(), 2u);
    EXPECT_EQ(std::tuple(blank.model, blank.maxTokens, blank.thinking),
              std::tuple(Ask::Model::strong, 10'000, 4'000));
    EXPECT_THAT(blank.messages[0].content,
                HasSubstr("The videos are vertical Shorts (9:16): under 60 seconds"));
    EXPECT_THAT(
        blank.messages[0].content,
        EndsWith("\n\nYou can only cut from clips whose lines you have read. To read more before answering, "
                 "reply with JSON only:\n{\"read\": [\"C05\", \"C07\"]}\nYou will then get their lines. Ask "
                 "only for what you need; you can ask 3 times."));
    EXPECT_THAT(blank.messages[1].content,
                testing::StartsWith(
                    "Instruction: the fall\n\nThe owner's notes on the footage:\nrec.mp4: A stream\n\n"
                    "Every clip, a line each:\nC01 (rec.mp4 at 0:00"));
    EXPECT_THAT(blank.messages[1].content, Not(HasSubstr("C05 (")));
    EXPECT_THAT(blank.messages[1].content, EndsWith("and ask to read those."));

    const auto given = told.reading({told.clips()[4], told.clips()[1]});
    EXPECT_THAT(tags(given.given()), ElementsAre("C05", "C02")) << "a rejected clip that is given stays";
    EXPECT_THAT(given.ask().messages[1].content, HasSubstr("The lines you can read now:\n\n## C05, rec.mp4"));
}

TEST(Reading, grantsThreeReads) {
    const Told told;
    auto reading = told.reading();
    EXPECT_TRUE(reading.goesOn(R"(Let me see: {"read": ["c02 ", "C2", "C05", "C99"], "cuts": []})"));
    EXPECT_THAT(tags(reading.asked()), ElementsAre("C02"));
    EXPECT_THAT(reading.ask().messages.back().content, Not(HasSubstr("That is all you can read")));
    EXPECT_TRUE(reading.goesOn(R"({"read": ["C02", "C01"]})"));
    EXPECT_TRUE(reading.goesOn(R"({"read": ["C03"]})"));
    EXPECT_THAT(reading.ask().messages.back().content,
                EndsWith("\n\nThat is all you can read. Answer now with what you have."));
    EXPECT_EQ(reading.ask().messages.size(), 8u);
    EXPECT_FALSE(reading.goesOn(R"({"read": ["C04"]})"));
    EXPECT_EQ(reading.rounds(), 3);
}

TEST(Reading, takesAllElseForTheAnswer) {
    const Told told;
    for (const char* reply : {"", "nothing", R"({"read": []})", R"({"read": ["C05"]})", R"({"read": "C01"})",
                              R"({"read": ["C01", 2]})", R"({"cuts": []})"})
        EXPECT_FALSE(told.reading().goesOn(reply)) << reply;
    auto given = told.reading({told.clips()[0]});
    EXPECT_FALSE(given.goesOn(R"({"read": ["C01"]})")) << "it was read already";
}
