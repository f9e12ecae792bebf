#include "core/ai/SoundKit.h"
#include "tests/ProblemOf.h"
#include "tests/ai/Played.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;
using testing::ElementsAre, testing::EndsWith;

TEST(SoundKit, tellsTheMomentsAndTheLibrary) {
    Played played;
    EXPECT_THAT(SoundKit::ask(played.video(), played.project, Said(played.project), {}).messages[1].content,
                EndsWith("\n\nIts switches of framing:\nnone\n\nIts punchlines shown big: none\n\nThe sound "
                         "library:\n"));
    auto& look = played.video().look.emplace();
    look.shots.edit() = {{.source = played.source(), .at = 5, .layout = Shot::Layout::face, .zoom = 1.2},
                         {.source = played.source(), .at = 0}};
    look.captions.lines.edit() = {{.line = played.line(2), .big = true}};
    const auto ask = SoundKit::ask(played.video(), played.project, Said(played.project), {"Hits/boom.wav"});
    EXPECT_THAT(
        ask.messages[1].content,
        EndsWith("\n\nIts switches of framing:\n0.0 s: split\n5.0 s: face punched in\n\nIts punchlines shown "
                 "big: C01.03\n\nThe sound library:\nHits/boom.wav"));
    EXPECT_EQ(ask.maxTokens, 4'000);
}

TEST(SoundKit, leavesTheOwnersSoundsWhereTheAnswerNamesNone) {
    Played played;
    played.video().look.emplace().sounds.edit() = {
        {.file = "media/own.wav", .source = played.source(), .at = 1}};
    const auto before = played.project;
    EXPECT_EQ(problemOf([&] {
                  SoundKit::apply({{"sound", 1}}, played.id(), played.project, {}, played.run);
              }),
              "No sounds could be read from the answer; Activity has it.");
    EXPECT_EQ(played.project, before);
    const json answer = {{"sounds", {{{"file", "Hits/boom.wav"}, {"at", "C01.02"}, {"volume", 0.6}}}}};
    EXPECT_THAT(SoundKit::files(answer), ElementsAre("Hits/boom.wav"));
    EXPECT_EQ(SoundKit::apply(answer, played.id(), played.project, {{"Hits/boom.wav", "media/boom.wav"}},
                              played.run),
              "V1 has 1 sounds.");
    EXPECT_EQ(played.video().look->sounds[0].file, "media/boom.wav");
}
