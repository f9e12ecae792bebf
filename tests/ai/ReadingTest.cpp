#include "core/ai/CutToInstruction.h"
#include "core/ai/Ideas.h"
#include "core/ai/LastRuns.h"
#include "tests/ai/Footage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace {

/// Five clips of three lines each, the last one rejected.
struct Told : Footage {
    Told() {
        for (int n = 0; n < 5; ++n) addClip(100.0 * n, {"first", "second", "third"});
        project.clips.edit()[4].rating = -1;
        project.sources.edit()[0].note = "A stream";
    }

    std::vector<UUID> clips() const {
        std::vector<UUID> ids;
        for (const auto& clip : project.clips) ids.push_back(clip.id);
        return ids;
    }
    Reading reading(const std::vector<UUID>& given = {}) const {
        return CutToInstruction::reading("the fall", clips(), given, Video::Aspect::square, project);
    }
};

std::vector<std::string> tags(const Brief::Clips& clips) {
    std::vector<std::string> found;
    for (const auto* clip : clips) found.push_back(clip->tag());
    return found;
}

json cutsOf(std::initializer_list<std::pair<const char*, const char*>> cuts) {
    auto list = json::array();
    for (const auto& [from, to] : cuts) list.push_back({{"from", from}, {"to", to}});
    return list;
}

}

TEST(Reading, opensWithALinePerClipAndTheLinesThatAreGiven) {
    const Told told;
    const auto unread = told.reading();
    const auto& blank = unread.ask();
    ASSERT_EQ(blank.messages.size(), 2u);
    EXPECT_EQ(blank.model, Ask::Model::strong);
    EXPECT_EQ(blank.maxTokens, 10'000);
    EXPECT_EQ(blank.thinking, 4'000);
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

TEST(CutToInstruction, cutsOnlyWhatWasRead) {
    const Told told;
    const auto reading = told.reading({told.clips()[0]});
    const auto answer = CutToInstruction::answer(
        {{"title", "The fall"},
         {"cuts", cutsOf({{"C01.01", "C01.02"}, {"C02.01", "C02.02"}, {"C01.02", "C01.01"}})}},
        reading);
    EXPECT_EQ(answer.title, "The fall");
    EXPECT_EQ(answer.note, "");
    ASSERT_EQ(answer.cuts.size(), 1u);
    EXPECT_EQ(answer.cuts[0].start, 1);
    EXPECT_EQ(answer.cuts[0].end, 4);

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

TEST(Ideas, areTakenOneByOne) {
    const Told told;
    const auto reading =
        Ideas::reading(told.clips(), told.clips(), "falls", Video::Aspect::vertical, told.project);
    EXPECT_THAT(reading.ask().messages[1].content, testing::StartsWith("Find videos for this: falls"));
    EXPECT_EQ(reading.ask().maxTokens, 12'000);
    const auto run = LastRuns::now(Run::By::app, "m");
    const auto ideas = Ideas::ideas(
        {{"ideas",
          {{{"title", "No cuts hold up"}, {"cuts", cutsOf({{"C09.01", "C09.02"}})}},
           {{"title", "Falls"}, {"hook", 5}, {"why", "funny"}, {"cuts", cutsOf({{"C02.01", "C02.03"}})}},
           "idea",
           {{"cuts", cutsOf({{"C01.01", "C01.01"}})}}}}},
        reading, "falls", run);
    ASSERT_EQ(ideas.size(), 2u);
    EXPECT_EQ(ideas[0].title, "Falls");
    EXPECT_EQ(ideas[0].hook, "");
    EXPECT_EQ(ideas[0].why, "funny");
    EXPECT_EQ(ideas[0].instruction, "falls");
    EXPECT_EQ(ideas[0].run, run);
    EXPECT_EQ(ideas[1].title, "Untitled");
    EXPECT_THAT(Ideas::ideas({{"ideas", {{"title", "x"}}}}, reading, std::nullopt, run), IsEmpty());
}
