#include "core/mcp/MCPCalls.h"
#include "core/mcp/MCPTags.h"
#include "tests/ProblemOf.h"
#include "tests/ai/Footage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;
using testing::HasSubstr;

namespace {

class MCPCallsTest : public testing::Test, protected Footage {
protected:
    MCPCallsTest() {
        addClip(0, {"so this is the boss room", "two", "three"}); // 1-2, 3-4, 5-6
        addClip(100, {"over there", "THE BOSS"});                 // 101-102, 103-104
        addVideo("First", {cut(1, 4), cut(101, 104)});            // V1
    }

    MCPResult call(const char* tool, const char* arguments) {
        auto result = MCPCalls::call(tool, json::parse(arguments), project, context);
        if (result.looked)
            for (const auto& video : project.videos)
                if (video.id == *result.looked) context.seen[video.id] = video;
        return result;
    }
    std::string text(const char* tool, const char* arguments) { return call(tool, arguments).text; }
    std::string problem(const char* tool, const char* arguments) {
        const auto before = project;
        auto words = problemOf([&] { call(tool, arguments); });
        EXPECT_EQ(project, before) << tool;
        return words;
    }
    Video& video() { return project.videos.edit()[0]; }

    MCPContext context;
};

}

TEST_F(MCPCallsTest, overviewTellsTheWholeProject) {
    project.sources.edit()[0].note = "A boss rush.";
    project.clips.edit()[1].rating = -1;
    EXPECT_EQ(
        text("overview", "{}"),
        "Sources:\nrec.mp4 (a stream), 2:00:00: A boss rush.\n\n"
        "Clips (1; rejected ones left out):\n"
        "C01 (rec.mp4 at 0:00, 0:08): not described yet. It starts: so this is the boss room two three\n\n"
        "Videos:\nV1 “First”, 9:16, 0:06, 2 cuts\n\n"
        "Ideas waiting: none yet");
    project = Project();
    EXPECT_EQ(text("overview", "{}"),
              "Sources:\nnone yet\n\nClips (0; rejected ones left out):\nnone yet\n\nVideos:\nnone "
              "yet\n\nIdeas waiting: "
              "none yet");
}

TEST_F(MCPCallsTest, overviewOfManyClipsStaysShort) {
    for (int count = 0; count < 500; ++count)
        addClip(1000 + count * 10.0, {"a long sentence that somebody says while he plays", "and another one"})
            .summary = Clip::Summary{"He walks into the wrong room again", std::string(250, 'x')};
    const auto whole = text("overview", "{}");
    EXPECT_LT(whole.size(), 40'000u);
    for (const auto& clip : project.clips) ASSERT_THAT(whole, HasSubstr("\n" + clip.tag() + " "));
    EXPECT_THAT(whole, HasSubstr("He walks into the wrong"));
    for (int count = 0; count < 6000; ++count) addClip(10'000 + count, {});
    EXPECT_LT(text("overview", "{}").size(), 40'000u);
}

TEST_F(MCPCallsTest, readsClipsAndFindsWords) {
    EXPECT_EQ(text("read_clips", R"({"clips": ["c02", "C02"]})"),
              "## C02, rec.mp4, 1:40 to 1:46\nC02.01 [1:41] over there\nC02.02 [1:43] THE BOSS\n");
    const std::string endless(95'000, 'x'); // more than one answer holds
    addClip(200, {endless.c_str()});
    const auto much = text("read_clips", R"({"clips": ["C03", "C01"]})");
    EXPECT_THAT(much, HasSubstr(endless));
    EXPECT_THAT(much,
                testing::EndsWith("… and 1 more, from C01 on; read_clips them in a call of their own."));
    for (const auto* bad : {"{}", R"({"clips": []})", R"({"clips": "C01"})", R"({"clips": [1]})"})
        EXPECT_EQ(problem("read_clips", bad), "Name the clips by tag, like C14.") << bad;
    EXPECT_EQ(problem("read_clips", R"({"clips": ["C09"]})"), "There is no clip C09. overview lists them.");
    EXPECT_EQ(text("search_lines", R"({"query": " Boss "})"),
              "C01.01 [0:01] so this is the boss room\nC02.02 [1:43] THE BOSS");
    EXPECT_EQ(problem("search_lines", R"({"query": "  "})"), "Say what words to find.");
    EXPECT_EQ(text("search_lines", R"({"query": "cake"})"), "Nothing said holds “cake”.");
}

TEST_F(MCPCallsTest, showsSixtyHits) {
    std::vector<const char*> said(61, "again");
    for (const auto* words : said) addClip(1000 + 10.0 * project.clips.size(), {words});
    const auto found = text("search_lines", R"({"query": "again"})");
    EXPECT_THAT(found, testing::EndsWith("\n… and 1 more; ask with more words."));
    EXPECT_EQ(std::count(found.begin(), found.end(), '\n'), 60);
}

TEST_F(MCPCallsTest, readsAVideoWhole) {
    auto& look = video().look.emplace();
    look.shots.edit() = {
        {.source = source(), .at = 1},
        {.source = source(), .at = 103, .layout = Shot::Layout::face, .zoom = 1.2, .move = "push"}};
    look.shots.edit().push_back({.source = UUID::make(), .at = 2}); // of footage that it doesn't play
    look.captions.lines.edit() = {{.line = lines()[0].id,
                                   .pieces = {{{.text = "so this"}, {.text = "is the boss room"}}},
                                   .big = true}};
    look.sounds.edit() = {{.file = "media/boom.wav", .source = source(), .at = 103, .volume = 0.6},
                          {.file = "media/hit.wav", .source = source(), .at = 101.5, .muted = true}};
    look.mix = Mix{.muted = {{Lane::music, Lane::video}}};
    EXPECT_EQ(text("read_video", R"({"video": " v1"})"),
              "V1 “First”, 9:16, 0:06.\n\n"
              "Cuts:\n1. C01.01 to C01.02, 3.0 s: so this is the boss room two\n"
              "2. C02.01 to C02.02, 3.0 s: over there THE BOSS\n\n"
              "Shots:\n0:00 on the video, C01.01: split\n0:05 on the video, C02.02: face, zoom 1.20, push\n"
              "not on the video: split\n\n"
              "Captions: big C01.01; hidden none\nBroken by hand:\nC01.01: so this / is the boss room\n\n"
              "Sounds:\nboom.wav at C02.02, volume 0.60\nhit.wav at C02.01 + 0.5 s, volume 0.70, muted by "
              "the owner\n\n"
              "Muted by the owner: Video, Music");
    video().look.reset();
    EXPECT_THAT(
        text("read_video", R"({"video": "V1"})"),
        testing::EndsWith("Shots:\nnone yet: all split\n\nCaptions: big none; hidden none\n\nSounds:\nnone"));
    EXPECT_EQ(problem("read_video", R"({"video": "V9"})"), "There is no video V9. The videos are V1.");
}

TEST_F(MCPCallsTest, whatChangedIsWhatTheOwnerDid) {
    EXPECT_EQ(text("what_changed", R"({"video": "V1"})"),
              "You have not read V1 yet this session. read_video gives all of it.");
    call("read_video", R"({"video": "V1"})");
    EXPECT_EQ(text("what_changed", R"({"video": "V1"})"), "Nothing in V1 changed since you last read it.");
    video().title = "Second";
    video().cuts.edit().pop_back();
    video().look.emplace().shots.edit() = {{.source = source(), .at = 1}};
    EXPECT_EQ(text("what_changed", R"({"video": "V1"})"),
              "Since you last read V1:\nTitle: “First” → “Second”\nCuts, 0:06 → 0:03, now:\n"
              "1. C01.01 to C01.02, 3.0 s: so this is the boss room two\nShots: 1\n\n"
              "read_video gives the whole of it as it is now.");
    EXPECT_EQ(text("what_changed", R"({"video": "V1"})"), "Nothing in V1 changed since you last read it.");
}

TEST_F(MCPCallsTest, bookmarksSayWhereTheyAre) {
    EXPECT_EQ(text("list_bookmarks", "{}"), "The owner has no bookmarks.");
    project.bookmarks.edit() = {{.number = 1, .source = source(), .at = 3.5, .note = "here"},
                                {.number = 2, .source = source(), .at = 50, .end = 55},
                                {.number = 3, .source = UUID::make(), .at = 1}};
    EXPECT_EQ(text("list_bookmarks", "{}"),
              "B1 rec.mp4 0:03, in C01, at C01.02: here\n"
              "B2 rec.mp4 0:50 to 0:55, in no clip, at C01.03 + 44.0 s\n"
              "B3 a missing file 0:01, in no clip");
    EXPECT_EQ(MCPTags::line(100, source(), Said(project)), "C02.01 - 1.0 s")
        << "before the line it is nearest to";
}

TEST_F(MCPCallsTest, loudPlacesAreNamedByTheirLines) {
    EXPECT_EQ(problem("read_loudness", "{}"), "Name the clips by tag, like C14.");
    EXPECT_EQ(problem("read_loudness", R"({"clips": ["C01"]})"),
              "Murbo is still measuring how loud the footage is. Ask again in a minute.");
    auto& levels = context.loudness[source()];
    levels.assign(72'000, 50);
    std::fill(levels.begin() + 1030, levels.begin() + 1040, 200); // 103 to 104 s
    const auto told = text("read_loudness", R"({"video": "V1"})");
    EXPECT_THAT(told, testing::StartsWith("Times are on the video; each place names the line it falls in.\n\n"
                                          "Loud (well above the usual level): 0:05 to 0:06, C02.02\n\n"));
    EXPECT_THAT(told, HasSubstr("where a punch-in or a sound fits: "));
    EXPECT_THAT(told, HasSubstr("; 0:05, C02.02\n\n"));
    EXPECT_THAT(told, testing::EndsWith("Nobody speaks for 2 s or more: none"));
    const auto clips = text("read_loudness", R"({"clips": ["C01"]})");
    EXPECT_THAT(clips, testing::StartsWith("Times are on each clip's source; "));
    EXPECT_THAT(clips, testing::EndsWith("2 s or more: 0:06 to 0:08, C01.03"));
    levels.assign(72'000, 0);
    EXPECT_THAT(text("read_loudness", R"({"clips": ["C01"]})"), HasSubstr("or a sound fits: none\n"));
}

TEST_F(MCPCallsTest, describesAndFixes) {
    const auto described =
        call("describe_clips",
             R"({"clips": [{"clip": "c02", "title": "x", "summary": "y"}, {"clip": "C01", "title": "z"}]})");
    EXPECT_EQ(described.text, "Described C02. Left out: C01: it needs a title and a summary.");
    EXPECT_EQ(described.step, "Describe Clip");
    EXPECT_EQ(project.clips[1].runs->at("describeClips").by, murbo::Run::By::mcp);
    EXPECT_EQ(problem("describe_clips", R"({"clips": [{"title": "x"}]})"),
              "Nothing could be read: each entry needs a clip and a title.");
    const auto before = lines()[1];
    const auto fixed =
        call("fix_lines", R"({"lines": [{"line": "c1.2", "text": " too "}, {"line": "C01.03", "text": " "},
                                                       {"line": "C02.01", "text": "over here"}]})");
    EXPECT_EQ(fixed.text, "Fixed C01.02, C02.01.");
    EXPECT_EQ(fixed.step, "Fix Lines");
    auto expected = before;
    expected.text = "too";
    EXPECT_EQ(lines()[1], expected) << "with its id and times";
    notes() = {{.start = 1, .end = 2, .text = "he opens the door"}};
    EXPECT_EQ(problem("fix_lines", R"({"lines": [{"line": "C01.n1", "text": "x"}]})"),
              "No line could be fixed: each needs the tag of a line that is there and its words.");
}

TEST_F(MCPCallsTest, makesAndRevisesVideos) {
    const auto made = call(
        "make_video", R"({"title": " ", "aspect": "16:9", "cuts": [{"from": "C01.01", "to": "C01.03"}]})");
    EXPECT_EQ(made.text, "V2 “Untitled Video”, 0:05, 1 cuts.");
    EXPECT_EQ(made.step, "Make Video");
    EXPECT_EQ(made.looked, project.videos[1].id);
    EXPECT_EQ(project.videos[1].aspect, Video::Aspect::horizontal);
    EXPECT_EQ(project.videos[1].runs->at("cutToInstruction").by, murbo::Run::By::mcp);
    EXPECT_EQ(problem("make_video", R"({"title": "x", "cuts": [{"from": "C01.01", "to": "C02.01"}]})"),
              "No cut holds up: each needs a from and a to, lines that are there, in one clip.");

    video().cuts.edit()[0].start = 0.5; // the owner's trim
    EXPECT_EQ(
        text("set_cuts", R"({"video": "V1", "cuts": [{"from": "C01.01", "to": "C01.02", "role": "setup"}]})"),
        "V1 now has 1 cuts, 0:03.");
    EXPECT_EQ(video().cuts[0].start, 0.5);
    EXPECT_EQ(video().cuts[0].role, "setup");
    EXPECT_EQ(problem("set_cuts", R"({"video": "V1", "cuts": "all"})"),
              "No cut holds up, so V1 is left as it was.");

    EXPECT_EQ(text("rename_video", R"({"video": "V1", "title": "New"})"), "V1 is “New”.");
    for (const auto* bad : {R"({"video": "V1"})", R"({"video": "V1", "title": " \n"})"})
        EXPECT_EQ(problem("rename_video", bad), "Say the new title.");
}

TEST_F(MCPCallsTest, proposesIdeas) {
    const auto cuts = R"("cuts": [{"from": "C01.01", "to": "C01.02"}])";
    const auto one = std::string(R"({"ideas": [{"title": "A", "hook": "h", "why": "w", )") + cuts +
                     "}, {\"title\": \"B\"}]}";
    const auto result = call("propose_ideas", one.c_str());
    EXPECT_EQ(result.text, "The owner sees it in Project ▸ Ideas: A.");
    EXPECT_EQ(result.step, "Propose Idea");
    ASSERT_EQ(project.ideas->size(), 1u);
    EXPECT_EQ((*project.ideas)[0].run->by, murbo::Run::By::mcp);
    EXPECT_EQ(problem("propose_ideas", "{}"),
              "No idea had a cut that holds up: every cut needs a from and a to, lines that are there, in "
              "one clip.");
}

TEST_F(MCPCallsTest, dressesVideos) {
    EXPECT_EQ(call("set_shots", R"({"video": "V1", "shots": [{"at": "C01.02", "layout": "face"}]})").step,
              "Frame by Claude");
    EXPECT_EQ(text("set_captions", R"({"video": "V1", "big": ["C02.02"]})"),
              "V1: 1 big, 0 hidden, 0 broken by hand.");
    context.sounds["boom.wav"] = "media/boom.wav";
    EXPECT_EQ(text("set_sounds", R"({"video": "V1", "sounds": [{"file": "boom.wav", "at": "C02.02"}]})"),
              "V1 has 1 sounds.");
    EXPECT_EQ(text("what_changed", R"({"video": "V1"})"), "Nothing in V1 changed since you last read it.")
        << "its own changes are no news to it";
    EXPECT_EQ(problem("what", "{}"), "Murbo has no tool called what.");
}
