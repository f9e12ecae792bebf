#include "tests/paid/PaidProject.h"

using namespace murbo;
using testing::HasSubstr;

using json = nlohmann::json;
using FootageTasks = PaidProject;

TEST_F(FootageTasks, clipsAreDescribed) {
    model.says("Here you are:\n```json\n" +
               json{{"clips",
                     {{{"clip", "c01"},
                       {"title", "Ann falls"},
                       {"summary", "She falls. It hurts."},
                       {"energy", "panic"},
                       {"key_line", "C1.2"}},
                      {{"clip", "C02"}, {"title", "No summary"}},
                      {{"clip", "C09"}, {"title", "Another"}, {"summary", "clip"}}}}}
                   .dump() +
               "\n```");
    EXPECT_EQ(run({"--describe", package, "all"}), printed("Described 1 clip"));
    EXPECT_EQ(model.lastWords(), expected("describe"));
    const auto clip = project().clips[0];
    ASSERT_TRUE(clip.summary);
    EXPECT_EQ(clip.summary->title, "Ann falls");
    EXPECT_EQ(clip.summary->keyLine, project().transcripts.begin()->second.lines[1].id);
    EXPECT_EQ(clip.runs->at("describeClips").with, "anthropic/claude-haiku-5.5");
    EXPECT_FALSE(project().clips[1].summary);
    EXPECT_EQ(logged(), "Describe C01, C02, done");
    EXPECT_EQ(log()[0].cost, 0.01);
    EXPECT_EQ(log()[0].engine, "anthropic/claude-haiku-5.5");
    EXPECT_EQ(lastStep(), "Describe Clips");
}

TEST_F(FootageTasks, wordsAreFixed) {
    model.answers(json{{"lines",
                        {{{"line", "C01.01"}, {"text", "worms 1 of clip 1"}},
                         {{"line", "C01.02"}, {"text", "something else altogether, and longer by far"}},
                         {{"line", "C04.01"}, {"text", "wards 1 of clip 4"}}}}});
    EXPECT_EQ(run({"--fix-words", package, "C01,C02,C09"}),
              printed("Left out: C01.02 would say something else.\nCorrected 1 line"));
    EXPECT_EQ(project().transcripts.begin()->second.lines[0].text, "worms 1 of clip 1");
    EXPECT_TRUE(project().clips[0].runs->contains("fixWords"));
    EXPECT_EQ(lastStep(), "Fix Words");
}

TEST_F(FootageTasks, batchesSeeWhatWasDescribedBeforeAndFailAlone) {
    auto project = this->project();
    auto& clips = project.clips.edit();
    clips[0].end = clips[0].start + 1990; // a batch of its own
    ProjectPackage::write(project, package, nullptr);
    model.answers(json{{"clips", {{{"clip", "C01"}, {"title", "First"}, {"summary", "Of all."}}}}});
    model.sends(FakeServer::reply(402, R"({"error": {"message": "Insufficient credits"}})"));
    const Ran wanted{1,
                     "C02 could not be described. OpenRouter did not answer. Insufficient credits\n"
                     "Described 1 clip\n"};
    EXPECT_EQ(run({"--describe", package, "C09,C01,C02"}), wanted);
    EXPECT_EQ(logged(), "Describe C01, done; Describe C02, failed");
    EXPECT_THAT(model.lastWords(), HasSubstr("): First. Of all."));
}
