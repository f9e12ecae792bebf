#include "core/mcp/Overview.h"
#include "tests/mcp/Calling.h"

#include <fmt/format.h>

using namespace murbo;
using testing::HasSubstr;

using OverviewTest = Calling;

TEST_F(OverviewTest, overviewOfManyClipsStaysShort) {
    for (int count = 0; count < 500; ++count)
        addClip(1000 + count * 10.0, {"a long sentence that somebody says while he plays", "and another one"})
            .summary = Clip::Summary{"He walks into the wrong room again", std::string(250, 'x')};
    const auto whole = text("overview", "{}");
    EXPECT_LT(whole.size(), 40'000u);
    for (const auto& clip : project.clips) ASSERT_THAT(whole, HasSubstr("\n" + clip.tag() + " "));
    EXPECT_THAT(whole, HasSubstr("He walks into the wrong"));
    for (int count = 0; count < 6000; ++count) addClip(10'000 + count, {});
    auto& ideas = project.ideas.emplace().edit();
    for (int number = 0; number < 60; ++number) ideas.push_back({.title = std::string(100, 'i')});
    EXPECT_NEAR(double(text("overview", "{}").size()), Overview::maxBytes, 100);
}

TEST_F(OverviewTest, manyClipsAreShortenedSourceBySource) {
    project.sources.edit().push_back(
        {.group = project.groups[0].id, .path = "/footage/cam.mp4", .length = 60});
    for (int count = 0; count < 200; ++count) addClip(1000 + count * 10.0, {std::string(250, 'x').c_str()});
    auto& last = project.clips.edit().emplace_back(
        Clip{.number = 999, .source = project.sources[1].id, .start = 5, .end = 65, .rating = 1});
    const auto nothing = text("overview", "{}");
    EXPECT_THAT(nothing, HasSubstr("(shortened; search_lines finds words, read_clips gives a clip's "
                                   "lines)\nIn rec.mp4:\nC01 0:00, 0:08: so this"));
    EXPECT_THAT(nothing, HasSubstr("\nIn cam.mp4:\nC999 0:05, 1:00, a favourite: nothing said\n"));
    EXPECT_EQ(nothing.find("\nIn rec.mp4:"), nothing.rfind("\nIn rec.mp4:"));
    last.summary = Clip::Summary{"Its Summary", ""};
    EXPECT_THAT(text("overview", "{}"), HasSubstr("a favourite: Its Summary\n"));
    last.name = "Own";
    EXPECT_THAT(text("overview", "{}"), HasSubstr("a favourite: Own\n"));
    EXPECT_LT(text("overview", "{}").size(), Overview::maxBytes + 1000);
}

TEST_F(OverviewTest, longNotesAndListsOfIdeasAreCut) {
    project.sources.edit()[0].note = std::string(599, 'n') + "abc";
    auto& ideas = project.ideas.emplace().edit();
    for (int number = 1; number <= 62; ++number) ideas.push_back({.title = fmt::format("I{}", number)});
    const auto whole = text("overview", "{}");
    EXPECT_THAT(whole, HasSubstr(": " + std::string(599, 'n') + "a…\n"));
    EXPECT_THAT(whole, HasSubstr("Ideas waiting: “I1”, “I2”, "));
    EXPECT_THAT(whole, testing::EndsWith("“I60” and 2 more"));
}
