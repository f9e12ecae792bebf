#include "Footage.h"
#include "core/ai/CaptionsByTag.h"
#include "core/ai/DescribeClips.h"
#include "core/ai/LastRuns.h"
#include "core/ai/ShotsByTag.h"
#include "core/ai/SoundsByTag.h"
#include "tests/ProblemOf.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;

namespace {

/// A video that plays lines 2 and 3 of a clip, from 3.2 to 6 seconds.
class ByTag : public testing::Test, protected Footage {
protected:
    ByTag() {
        addClip(0, {"one", "two words", "three", "four"});
        video = addVideo("V", {cut(3.2, 6)}).id;
        project.videos.edit()[0].look.emplace();
    }

    Look& look() { return *project.videos.edit()[0].look; }
    std::string shots(const char* text, const ShotsByTag::Layouts& layouts = {}) {
        return ShotsByTag::replace(project, video, json::parse(text), Said(project), layouts, run);
    }
    std::string captions(const json& big, const json& hidden, const json& breaks) {
        return CaptionsByTag::replace(project, video, {big, hidden, breaks}, Said(project), run);
    }
    std::string sounds(const char* text) {
        return SoundsByTag::replace(project, video, json::parse(text), Said(project),
                                    {{"Hits/boom.wav", "media/boom.wav"}}, run);
    }

    UUID video;
    const murbo::Run run = LastRuns::now(murbo::Run::By::mcp);
};

}

TEST_F(ByTag, shotsStartOnTheirLines) {
    EXPECT_EQ(shots(R"([{"at": "C01.02", "layout": " Face ", "zoom": "3", "move": "push"},
                        {"at": "C01.03", "layout": "duo", "zoom": 0.2, "move": "fly"},
                        {"at": "C01.04", "layout": "split"}, {"at": "C01.03", "layout": "none"}, 7])",
                    {{"duo", 4}}),
              "V1 has 2 shots. Left out: C01.04: not a line the video plays; C01.03: no layout none; "
              "(nothing): not a line the video plays.");
    const auto& made = *look().shots;
    EXPECT_EQ(made[0].at, 3.2) << "raised to the cut's start";
    EXPECT_EQ(made[0].layout, Shot::Layout::face);
    EXPECT_EQ(made[0].zoom, 2);
    EXPECT_EQ(made[0].move, "push");
    EXPECT_EQ(made[1].playbook, "duo");
    EXPECT_EQ(made[1].version, 4);
    EXPECT_EQ(made[1].zoom, 1);
    EXPECT_EQ(made[1].move, std::nullopt);
    EXPECT_EQ(LastRuns::of(project.videos[0].runs, Kit::ID::look), run);
}

TEST_F(ByTag, aChangeOfWhichNothingHoldsUpChangesNothing) {
    const auto before = project;
    EXPECT_EQ(problemOf([&] { shots(R"([{"at": "C09.01", "layout": "face"}])"); }),
              "No shot holds up. C09.01: not a line the video plays");
    EXPECT_EQ(problemOf([&] { sounds(R"([{"file": "none.wav", "at": "C01.02"}])"); }),
              "No sound holds up. none.wav: no such sound; list_sounds names them");
    EXPECT_EQ(project, before);
}

TEST_F(ByTag, aShotInItsPlaceKeepsWhatModelsCannotName) {
    shots(R"([{"at": "C01.03", "layout": "face"}])");
    look().shots.edit()[0].transition = "dip";
    const auto id = look().shots[0].id;
    shots(R"([{"at": "C01.03", "layout": "face", "zoom": 1.5}])");
    EXPECT_EQ(look().shots[0].transition, "dip");
    EXPECT_EQ(look().shots[0].zoom, 1.5);
    EXPECT_EQ(look().shots[0].id, id);
}

TEST_F(ByTag, captionsReplaceWhatWasChosenAndKeepTheRest) {
    const auto& lines = Footage::lines();
    look().captions.lines.edit() = {{.line = lines[1].id, .hidden = true, .stress = {{1}}},
                                    {.line = lines[2].id, .big = true}};
    EXPECT_EQ(captions({"C01.02", "C01.04"}, nullptr,
                       json::parse(R"([{"line": "C01.02", "pieces": [" two", "words "]},
                                       {"line": "C01.03", "pieces": ["thre"]}])")),
              "V1: 1 big, 0 hidden, 1 broken by hand. Left out: C01.04: not a line the video plays; "
              "C01.03: its pieces are not its words.");
    ASSERT_EQ(look().captions.lines.size(), 1u) << "an entry that says nothing any more is dropped";
    const auto& entry = look().captions.lines[0];
    EXPECT_EQ(entry.big, true);
    EXPECT_EQ(entry.hidden, std::nullopt);
    EXPECT_EQ(entry.stress, std::vector<std::int64_t>{1});
    ASSERT_TRUE(entry.pieces);
    EXPECT_EQ(entry.pieces->at(1).text, "words");
}

TEST_F(ByTag, soundsLieOnTheirLines) {
    EXPECT_EQ(sounds(R"([{"file": "Hits/boom.wav", "at": "C01.03", "after": 0.5, "volume": 1.5},
                         {"file": "Hits/boom.wav", "at": "C01.02", "after": -1},
                         {"file": "Hits/boom.wav", "at": "C01.01"}])"),
              "V1 has 2 sounds. Left out: C01.01 is not a line the video plays.");
    EXPECT_EQ(look().sounds[0].file, "media/boom.wav");
    EXPECT_EQ(look().sounds[0].at, 5.5);
    EXPECT_EQ(look().sounds[0].volume, 1);
    EXPECT_EQ(look().sounds[1].at, 3.2);
    EXPECT_EQ(look().sounds[1].volume, 0.7);
    look().sounds.edit()[0].muted = true;
    EXPECT_EQ(sounds(R"([{"file": "boom.wav", "at": "C01.03", "after": 0.5}])"), "V1 has 1 sounds.")
        << "its own by the name that it was told by";
    EXPECT_EQ(look().sounds[0].muted, true);
    EXPECT_EQ(sounds("[]"), "V1 has 0 sounds.");
    EXPECT_TRUE(look().sounds.empty());
}

TEST_F(ByTag, descriptionsAreTakenEntryByEntry) {
    const std::vector<const Clip*> clips{&project.clips[0]};
    const auto read = DescribeClips::summaries(
        json::parse(
            R"([{"clip": "c01", "title": " A fall ", "summary": "He falls.", "energy": " ", "kind": "fail",
                         "key_line": "c1.3", "unsure": 4},
                        {"clip": "C02", "title": "Other", "summary": "Other."}, {"clip": "C01", "title": "No more"}])"),
        clips, Said(project));
    ASSERT_EQ(read.size(), 1u);
    const auto& summary = read.begin()->second;
    EXPECT_EQ(
        summary,
        (Clip::Summary{
            .title = "A fall", .summary = "He falls.", .kind = "fail", .keyLine = Footage::lines()[2].id}));
    DescribeClips::apply(read, project, run);
    EXPECT_EQ(project.clips[0].summary, summary);
    EXPECT_EQ(LastRuns::of(project.clips[0].runs, Kit::ID::describeClips), run);
}
