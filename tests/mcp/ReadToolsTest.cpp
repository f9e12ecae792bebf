#include "core/mcp/ReadTools.h"
#include "tests/mcp/Calling.h"

using namespace murbo;
using testing::HasSubstr;

using ReadToolsTest = Calling;

TEST_F(ReadToolsTest, readsClipsAndFindsWords) {
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
    EXPECT_EQ(problem("search_lines", R"({"query": "  "})"), "Say what words to find.");
    EXPECT_EQ(text("search_lines", R"({"query": "cake"})"), "Nothing said holds “cake”.");
    lines().push_back({.start = 0.2, .end = 0.8, .text = "Boss first"});
    std::swap(project.clips.edit()[0], project.clips.edit()[1]);
    EXPECT_EQ(text("search_lines", R"({"query": " Boss "})"),
              "C02.02 [1:43] THE BOSS\nC01.01 [0:00] Boss first\nC01.02 [0:01] so this is the boss room")
        << "in the order of the clips";
}

TEST_F(ReadToolsTest, showsSixtyHits) {
    for (int count = 0; count < 61; ++count) addClip(1000 + 10.0 * count, {"again"});
    const auto found = text("search_lines", R"({"query": "again"})");
    EXPECT_THAT(found, testing::EndsWith("\n… and 1 more; ask with more words."));
    EXPECT_EQ(std::count(found.begin(), found.end(), '\n'), 60);
}

TEST_F(ReadToolsTest, bookmarksSayWhereTheyAre) {
    EXPECT_EQ(text("list_bookmarks", "{}"), "The owner has no bookmarks.");
    project.bookmarks.edit() = {{.number = 1, .source = source(), .at = 3.5, .note = "here"},
                                {.number = 2, .source = source(), .at = 8, .end = 9, .note = ""},
                                {.number = 3, .source = UUID::make(), .at = 1},
                                {.number = 4, .source = source(), .at = 100, .note = "two\nlines"}};
    EXPECT_EQ(text("list_bookmarks", "{}"),
              "B1 rec.mp4 0:03, in C01, at C01.02: here\n"
              "B2 rec.mp4 0:08 to 0:09, in no clip, at C01.03 + 2.0 s\n"
              "B3 a missing file 0:01, in no clip\n"
              "B4 rec.mp4 1:40, in C02, at C02.01 - 1.0 s: two lines");
}
