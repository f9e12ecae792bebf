#include "core/ai/StillThere.h"
#include "tests/ai/Told.h"

#include <gtest/gtest.h>

using namespace murbo;
using json = nlohmann::json;

TEST(StillThere, tagsFollowTheirLines) {
    Told before;
    const Said told(before.project);
    auto now = before.project;
    auto& lines = now.transcripts.begin()->second.lines.edit();
    lines[0].gone = true;                                                      // C01.01
    lines.insert(lines.begin(), {.start = 0.2, .end = 0.8, .text = "before"}); // what follows moves up
    const json reply{{"big", {"c1.2", "C01.01", "C02.01"}},
                     {"shots", {{{"at", "C01.03"}, {"layout", "face"}}}}};
    EXPECT_EQ(StillThere::tags(reply, told, Said(now)),
              (json{{"big", {"C01.03", "C01.01 (gone)", "C02.01"}},
                    {"shots", {{{"at", "C01.04"}, {"layout", "face"}}}}}));
    EXPECT_EQ(StillThere::tags(reply, told, told)["shots"], reply["shots"]);
}

TEST(StillThere, cutsGoWithTheirClips) {
    Told before;
    const Said told(before.project);
    const std::vector<Cut> cuts{before.cut(1, 4), before.cut(101, 104), {.start = 0, .end = 1}};
    auto now = before.project;
    now.clips.edit().erase(now.clips.begin());
    EXPECT_EQ(StillThere::cuts(cuts, told, now), (std::vector<Cut>{cuts[1], cuts[2]}));
    now.sources.edit().clear();
    EXPECT_EQ(StillThere::cuts(cuts, told, now), std::vector<Cut>{cuts[2]});
}

TEST(StillThere, trimsAreNoOtherPlay) {
    Told footage;
    const Said said(footage.project);
    const std::vector<Cut> cuts{footage.cut(1, 4), footage.cut(101, 104)};
    auto trimmed = cuts;
    trimmed[0].start = 1.4;
    trimmed[1].muted = true;
    EXPECT_TRUE(StillThere::samePlay(cuts, trimmed, said));
    trimmed[0].end = 2.4; // the second line is played no more
    EXPECT_FALSE(StillThere::samePlay(cuts, trimmed, said));
    EXPECT_FALSE(StillThere::samePlay(cuts, std::vector<Cut>{cuts[0]}, said));
    EXPECT_FALSE(StillThere::samePlay(cuts, std::vector<Cut>{cuts[1], cuts[0]}, said));
    // Where nothing is said, and of what was generated, a cut is the same by its identity.
    const auto card = Cut::generated("title", 1, std::nullopt, 2);
    for (const auto& one : {footage.cut(50, 60), card}) {
        auto same = one;
        same.end += 1;
        auto other = one;
        other.id = UUID::make();
        EXPECT_TRUE(StillThere::samePlay(std::vector<Cut>{one}, std::vector<Cut>{same}, said));
        EXPECT_FALSE(StillThere::samePlay(std::vector<Cut>{one}, std::vector<Cut>{other}, said));
        EXPECT_FALSE(StillThere::samePlay(std::vector<Cut>{one}, std::vector<Cut>{cuts[0]}, said));
    }
}
