#include "core/ai/FixWords.h"
#include "tests/ai/Played.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using testing::ElementsAre, testing::HasSubstr, testing::StartsWith;

TEST(FixWords, correctsButNeverRewords) {
    Played played;
    const Said said(played.project);
    const auto answer =
        FixWords::answer({{"lines",
                           {{{"line", "C01.01"}, {"text", "on\ntao thrae "}}, // 3 of 11 letters
                            {{"line", "C01.02"}, {"text", "six"}},            // its beginning is gone
                            {{"line", "C01.03"}, {"text", "seven eight and a good deal more"}},
                            {{"line", "C01.04"}, {"text", "nine"}},
                            {{"line", "C02.01"}, {"text", "elsewhen"}},
                            {{"line", "C01.09"}, {"text", "x"}},
                            {{"line", "C01.01"}},
                            "C01.01"}}},
                         {&played.project.clips[0]}, said);
    EXPECT_EQ(answer.corrections, (FixWords::Corrections{{played.line(0), "on tao thrae"}}));
    EXPECT_THAT(answer.leftOut, ElementsAre("C01.02", "C01.03"));
}

TEST(FixWords, asksAboutTheClipsWithTheOwnersNotes) {
    Played played;
    const auto words = [&] {
        return FixWords::ask(played.clips(), played.project, Said(played.project)).messages[1].content;
    };
    EXPECT_THAT(words(), StartsWith("Correct these:\n\n## C01, rec.mp4, 0:00 to 0:10\nC01.01"));
    played.project.sources.edit()[0].note = "Their game is Go.";
    EXPECT_THAT(words(), StartsWith("The owner's notes on the footage:\n"));
    EXPECT_THAT(words(), HasSubstr("Their game is Go.\n\nCorrect these:\n\n## C01"));
}

TEST(FixWords, aLineOfOverTwoThousandLettersIsLeftAlone) {
    Played played;
    for (const std::size_t length : {2000u, 2001u}) {
        const std::string was(length, 'x');
        played.lines()[0].text = was;
        const auto answer =
            FixWords::answer({{"lines", {{{"line", "C01.01"}, {"text", "y" + was.substr(1)}}}}},
                             played.clips(), Said(played.project));
        EXPECT_EQ(answer.corrections.size(), length > 2000 ? 0u : 1u);
        EXPECT_EQ(answer.leftOut.size(), length > 2000 ? 1u : 0u);
    }
}

TEST(FixWords, keepsWhatTheOwnerChangedMeanwhile) {
    Played played;
    const auto then = played.project;
    const Said said(then);
    played.lines()[0].text = "the owner's own";
    const FixWords::Corrections corrections{{played.line(0), "one too three"},
                                            {played.line(1), "for five six"}};
    EXPECT_EQ(FixWords::apply(corrections, said, played.project, played.run), 1u);
    EXPECT_EQ(played.lines()[0].text, "the owner's own");
    EXPECT_EQ(played.lines()[1].text, "for five six");
    EXPECT_TRUE(LastRuns::of(played.project.clips[0].runs, Kit::ID::fixWords));
    EXPECT_FALSE(LastRuns::of(played.project.clips[1].runs, Kit::ID::fixWords));
}
