#include "core/mcp/ReadTools.h"
#include "tests/mcp/Calling.h"

using namespace murbo;
using testing::HasSubstr;

using ReadToolsTest = Calling;

TEST_F(ReadToolsTest, anAnswerHoldsWholeClipsAndNoMoreThanAppsRead) {
    const std::string endless(95'000, 'x'); // more than one answer holds
    addClip(200, {endless.c_str()});
    const auto much = text("read_clips", R"({"clips": ["C03", "C01"]})");
    EXPECT_THAT(much, HasSubstr(endless));
    EXPECT_THAT(much,
                testing::EndsWith("… and 1 more, from C01 on; read_clips them in a call of their own."));
}

TEST_F(ReadToolsTest, showsSixtyHits) {
    for (int count = 0; count < 61; ++count) addClip(1000 + 10.0 * count, {"again"});
    const auto found = text("search_lines", R"({"query": "again"})");
    EXPECT_THAT(found, testing::EndsWith("\n… and 1 more; ask with more words."));
    EXPECT_EQ(std::count(found.begin(), found.end(), '\n'), 60);
}
