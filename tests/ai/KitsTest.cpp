#include "core/ai/DescribeClips.h"
#include "core/ai/FixWords.h"
#include "core/ai/LastRuns.h"
#include "core/ai/LookKit.h"
#include "core/ai/SoundKit.h"
#include "tests/ProblemOf.h"
#include "tests/ai/Footage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

namespace {

/// A video that plays the whole of one clip of four lines, and a second clip.
struct Played : Footage {
    Played() {
        addClip(0, {"one two three", "four five six", "seven eight", "nine"});
        addClip(100, {"elsewhere"});
        addVideo("Mine", {cut(0, 10)});
    }
    Video& video() { return project.videos.edit()[0]; }
    const UUID& id() const { return project.videos[0].id; }
    Brief::Clips clips() const { return {&project.clips[0], &project.clips[1]}; }
    UUID line(std::size_t n) const { return (*project.transcripts.at(source()).lines)[n].id; }

    Run run = LastRuns::now(Run::By::app, "m");
};

const LookKit::Offers layouts{{.id = "stock.layout.wide", .name = "Wide", .about = "All of it"}};
const LookKit::Offers overlays{
    {.id = "stock.hearts", .name = "Hearts", .about = "Hearts rise", .seconds = 4}};

}

TEST(DescribeClips, goesInBatchesThatARequestCanHold) {
    Played played;
    auto& clips = played.project.clips.edit();
    clips.clear();
    for (int n = 0; n < 30; ++n) clips.push_back({.start = 0, .end = 10});
    clips[25].end = 3000; // too long for any company
    Brief::Clips all;
    for (const auto& clip : clips) all.push_back(&clip);
    std::vector<std::size_t> sizes;
    for (const auto& batch : DescribeClips::batches(all)) sizes.push_back(batch.size());
    EXPECT_THAT(sizes, ElementsAre(20, 5, 1, 4));
}

TEST(DescribeClips, asksAboutTheClipsWithTheRestForBackground) {
    const Played played;
    const Said said(played.project);
    const auto ask = DescribeClips::ask({&played.project.clips[0]}, played.project, said);
    EXPECT_EQ(ask.model, Ask::Model::cheap);
    EXPECT_EQ(ask.maxTokens, 12'000);
    EXPECT_THAT(ask.messages[0].content, StartsWith("You describe clips of footage"));
    EXPECT_THAT(ask.messages[1].content,
                StartsWith("The rest of the project, for background only:\nC02 (rec.mp4 at 1:40"));
    EXPECT_THAT(ask.messages[1].content,
                HasSubstr("\n\nDescribe these:\n\n## C01, rec.mp4, 0:00 to 0:10\nC01.01"));
    const auto both = DescribeClips::ask(played.clips(), played.project, said);
    EXPECT_THAT(both.messages[1].content, StartsWith("Describe these:\n\n"));

    const Price price{0.001, 0.01};
    EXPECT_NEAR(DescribeClips::estimate(price, played.clips(), played.project, said),
                price.estimate(both.text(), 4000 + 400), 1e-9);
    const auto read = DescribeClips::read(
        R"(Here: {"clips": [{"clip": "c01", "title": "T", "summary": "S"}]})", played.clips(), said);
    EXPECT_EQ(read.at(played.project.clips[0].id).title, "T");
}

TEST(LookKit, tellsWhatIsOnOffer) {
    Played played;
    const Said said(played.project);
    const auto ask = LookKit::ask(played.video(), played.project, said, layouts, overlays);
    const auto& system = ask.messages[0].content;
    EXPECT_THAT(system, StartsWith("You give one vertical (9:16) video its look"));
    EXPECT_THAT(system,
                HasSubstr("talking to chat.\n- stock.layout.wide (Wide): All of it\n\nChange the framing"));
    EXPECT_THAT(
        system,
        HasSubstr("or none.\n\nOverlays you may lay on a line, at most three, only where one lifts the "
                  "moment:\n- stock.hearts (Hearts): Hearts rise\n\nReply with JSON only."));
    EXPECT_THAT(system, EndsWith("The first shot is at the first line."));
    EXPECT_THAT(
        ask.messages[1].content,
        StartsWith(
            "The video “Mine”, 10.0 s. Its lines, with when each comes on the video:\nC01.01 [0:01.0]"));
    EXPECT_THAT(LookKit::instructions(Video::Aspect::horizontal, {}, {}), Not(HasSubstr("Overlays you may")));
}

TEST(LookKit, carriesOutAllOfAnAnswerOrNothing) {
    Played played;
    auto& look = played.video().look.emplace();
    look.captions.lines.edit() = {{.line = played.line(1), .hidden = true},
                                  {.line = played.line(4), .big = true}};
    const auto before = played.project;
    const json answer = {
        {"shots",
         {{{"at", "C01.01"}, {"layout", "split"}}, {{"at", "C01.03"}, {"layout", "face"}, {"zoom", 1.2}}}},
        {"big", {"C01.03"}},
        {"overlays",
         {{{"playbook", "stock.hearts"}, {"at", "C01.04"}},
          {{"playbook", "stock.hearts"}, {"at", "C02.01"}},
          {{"playbook", "nobody's"}, {"at", "C01.01"}}}}};
    const auto words = LookKit::apply(answer, played.id(), played.project, layouts, overlays, played.run);
    EXPECT_THAT(words, HasSubstr("V1 has 2 shots."));
    EXPECT_THAT(words, EndsWith("1 overlay laid on"));
    const auto& after = *played.video().look;
    ASSERT_EQ(after.overlays.size(), 1u);
    EXPECT_EQ(after.overlays[0].at, 7);
    EXPECT_EQ(after.overlays[0].length, 3) << "no longer than the video has room";
    EXPECT_EQ(after.captions.line(played.line(2))->big, true);
    EXPECT_EQ(after.captions.line(played.line(1))->hidden, true) << "what the owner hid stays hidden";
    EXPECT_EQ(after.captions.line(played.line(4))->big, true) << "the video doesn't play it now";
    EXPECT_TRUE(LastRuns::of(played.video().runs, Kit::ID::look));

    played.project = before;
    const auto refused = [&](const json& object) {
        return problemOf(
            [&] { LookKit::apply(object, played.id(), played.project, layouts, overlays, played.run); });
    };
    EXPECT_EQ(refused(json::object()), "No look could be read from the answer; Activity has it.");
    EXPECT_THAT(refused({{"big", {"C01.03"}}, {"shots", {{{"at", "C02.01"}}}}}),
                StartsWith("No shot holds up. "));
    EXPECT_EQ(played.project, before);
}

TEST(SoundKit, tellsTheMomentsAndTheLibrary) {
    Played played;
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

TEST(FixWords, correctsButNeverRewords) {
    Played played;
    const Said said(played.project);
    const auto answer =
        FixWords::answer({{"lines",
                           {{{"line", "C01.01"}, {"text", "one too three"}},
                            {{"line", "C01.02"}, {"text", "something else altogether"}},
                            {{"line", "C01.03"}, {"text", "seven eight and a good deal more"}},
                            {{"line", "C01.04"}, {"text", "nine"}},
                            {{"line", "C02.01"}, {"text", "elsewhen"}},
                            {{"line", "C01.09"}, {"text", "x"}},
                            {{"line", "C01.01"}},
                            "C01.01"}}},
                         {&played.project.clips[0]}, said);
    EXPECT_EQ(answer.corrections, (FixWords::Corrections{{played.line(0), "one too three"}}));
    EXPECT_THAT(answer.leftOut, ElementsAre("C01.02", "C01.03"));
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
