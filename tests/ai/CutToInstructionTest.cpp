#include "core/ai/CutToInstruction.h"
#include "tests/ScriptedModel.h"
#include "tests/ai/Told.h"

#include <gmock/gmock.h>

using namespace murbo;
using nlohmann::json;
using testing::ElementsAre, testing::HasSubstr, testing::IsEmpty;

TEST(CutToInstruction, cutsOnlyWhatWasRead) {
    const Told told;
    const auto reading = told.reading({told.clips()[0]});
    const auto answer = CutToInstruction::answer(
        {{"title", "The fall"},
         {"cuts", cutsOf({{"C01.01", "C01.02"}, {"C02.01", "C02.02"}, {"C01.02", "C01.01"}})}},
        reading);
    EXPECT_EQ(answer.title + answer.note, "The fall");
    ASSERT_EQ(answer.cuts.size(), 1u);
    EXPECT_EQ(std::pair(answer.cuts[0].start, answer.cuts[0].end), std::pair(1.0, 4.0));

    const auto none = CutToInstruction::answer({{"title", " \n"}, {"cuts", 5}}, reading);
    EXPECT_EQ(none.title, "Untitled Video");
    EXPECT_EQ(none.note, "Nothing in the footage matched that.");
    EXPECT_THAT(none.cuts, IsEmpty());
}

TEST(CutToInstruction, revisesWithTrimsAndGeneratedCutsKept) {
    Told told;
    auto trimmed = told.cut(1.2, 3.9);
    trimmed.muted = true;
    Cut generated{.start = 0, .end = 2};
    generated.generator = Generator{.playbook = "stock.generator.title"};
    auto& video = told.addVideo("Mine", {generated, trimmed, told.cut(101, 104)});
    const auto reading = CutToInstruction::revising(video, "tighter", {told.clips()[2]}, told.project);
    EXPECT_THAT(tags(reading.given()), ElementsAre("C01", "C02"));
    EXPECT_THAT(reading.ask().messages[0].content, testing::StartsWith("You revise one video cut from"));
    EXPECT_THAT(
        reading.ask().messages[1].content,
        HasSubstr("Instruction: tighter\n\nThe video now, “Mine”, 7.7 s:\n1. 2.0 s, frames of their own: "));

    const auto answer = CutToInstruction::answer(
        {{"cuts", cutsOf({{"C02.01", "C02.01"}, {"C01.01", "C01.02"}})}}, reading, &video);
    EXPECT_EQ(answer.title, "Mine");
    ASSERT_EQ(answer.cuts.size(), 3u);
    EXPECT_TRUE(answer.cuts[0].generator);
    EXPECT_EQ(answer.cuts[1].end, 102);
    EXPECT_EQ(answer.cuts[2].start, 1.2);
    EXPECT_EQ(answer.cuts[2].muted, true);
    EXPECT_THAT(CutToInstruction::answer({{"cuts", json::array()}}, reading, &video).cuts, IsEmpty())
        << "with no cuts nothing is put back";
}
