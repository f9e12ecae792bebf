#include "core/ai/FixWords.h"
#include "tests/ai/Played.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace murbo;

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
