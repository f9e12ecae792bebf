#include "core/model/ProjectSummary.h"
#include "core/model/Tags.h"

#include <algorithm>
#include <cmath>
#include <ctime>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;
using testing::HasSubstr;

namespace {

/// One stream recording of an hour, in one group.
class Recording : public testing::Test {
protected:
    Recording() {
        project.groups.edit() = {{.name = "Stream"}};
        project.sources.edit() = {{.group = project.groups[0].id,
                                   .path = "/footage/rec.mp4",
                                   .kind = Source::Kind::stream,
                                   .length = 3723}};
    }

    Clip clip(std::int64_t number, double start, double end) const {
        return {.number = number, .source = source(), .start = start, .end = end};
    }
    const UUID& source() const { return project.sources[0].id; }
    Transcript& transcript() { return project.transcripts[source()]; }

    Project project;
};

}

TEST_F(Recording, isToldLineByLine) {
    for (int at = 0; at < 120; ++at)
        transcript().lines.edit().push_back({.start = at < 4 ? 13.0 + at : 1000 + at, .end = 20.0 + at});
    for (const double at : {20.0, 30.0, 500.0, 501.0, 502.0})
        transcript().notes.edit().push_back({.start = at, .end = at});
    project.clips.edit() = {clip(1, 514, 516), clip(1, 12.9, 83.4)};
    project.clips.edit()[0].part = "a";
    project.clips.edit()[1].rating = 1;
    project.clips.edit()[1].summary = Clip::Summary{"The big fall", ""};
    project.bookmarks.edit() = {{.number = 1, .source = source(), .at = 10, .note = "check this"}};
    project.videos.edit() = {{.number = 2, .title = "First cut"}};
    project.videos.edit()[0].cuts = std::vector<Cut>(3, {.end = 12.5 / 3});
    EXPECT_EQ(ProjectSummary::text(project, {source()}),
              "Stream\n"
              "  rec.mp4  stream, 1:02:03, 120 lines  (missing)\n"
              "    C01  0:12–1:23  4 lines, 2 notes  ★  The big fall\n"
              "    C01a  8:34–8:36  2 lines\n"
              "B1  rec.mp4 0:10  check this\n"
              "V2  First cut  9:16, 3 cuts, 12.5 s\n"
              "1 source (1 missing), 2 clips, 120 lines, 5 notes, 1 bookmark, 1 video");
}

TEST_F(Recording, isToldWhereItPointsNowhere) {
    project.sources.edit()[0].group = UUID::make();
    transcript().lines.edit().emplace_back();
    project.clips.edit() = {clip(1, 0, 1)};
    project.clips.edit()[0].rating = -1;
    project.bookmarks.edit() = {{.number = 3}};
    EXPECT_EQ(ProjectSummary::text(project, {}),
              "Stream\nB3  ? 0:00\n1 source (0 missing), 1 clip, 0 lines, 0 notes, 1 bookmark, 0 videos");
    project.sources.edit()[0].group = project.groups[0].id;
    EXPECT_THAT(ProjectSummary::text(project, {}), HasSubstr("    C01  0:00–0:01  1 line  ✕\n"));
}

TEST(ProjectSummary, tensOfThousandsOfSourcesAreToldInAMoment) {
    Project project;
    for (int number = 0; number < 20'000; ++number) {
        project.groups.edit().push_back({.name = "g"});
        project.sources.edit().push_back({.group = project.groups.back().id, .path = "/a.mp4"});
        const auto& source = project.sources.back().id;
        project.clips.edit().push_back({.number = number, .source = source});
        project.bookmarks.edit().push_back({.source = source});
    }
    const std::clock_t started = std::clock();
    const auto text = ProjectSummary::text(project, {});
    EXPECT_EQ(std::ranges::count(text, '\n'), 80'000);
    EXPECT_LT(double(std::clock() - started) / CLOCKS_PER_SEC, 5) << "17 s when each looked at all";
}

TEST(ProjectSummary, clocksRoundDownAndNeverEndTheProcess) {
    for (const auto& [seconds, shown] : {std::pair{0.0, "0:00"},
                                         {59.99, "0:59"},
                                         {3599.9, "59:59"},
                                         {3600.0, "1:00:00"},
                                         {360000.0, "100:00:00"},
                                         {-0.5, "-0:01"},
                                         {HUGE_VAL, "?"},
                                         {-HUGE_VAL, "?"},
                                         {std::nan(""), "?"},
                                         {1e300, "?"}})
        EXPECT_EQ(ProjectSummary::clock(seconds), shown);
}

TEST_F(Recording, tagsBelongToLinesByTheirMiddle) {
    project.clips.edit() = {clip(5, 10, 20), clip(100, 40, 50), {.source = UUID::make(), .end = 100}};
    project.clips.edit()[0].part = "b";
    // The third and fourth of those in C05b begin together and keep their order.
    const std::tuple<double, double, const char*> cases[] = {
        {20, 20, "none"},    {10, 10, "C05b.02"}, {12, 30, "none"},   {12, 13, "C05b.03"},
        {12, 14, "C05b.04"}, {8, 14, "C05b.01"},  {44, 45, "C100.01"}};
    for (const auto& [start, end, _] : cases)
        transcript().lines.edit().push_back({.start = start, .end = end, .gone = start == 12});
    const auto tags = Tags::on(source(), project);
    for (std::size_t at = 0; at < std::size(cases); ++at) {
        const auto found = tags.find(transcript().lines[at].id);
        EXPECT_EQ(found == tags.end() ? "none" : found->second, std::get<2>(cases[at])) << at;
    }
}

TEST_F(Recording, theLaterOfTwoOverlappingClipsNamesTheLine) {
    project.clips.edit() = {clip(2, 0, 10), clip(1, 5, 15)};
    transcript().lines.edit() = {{.start = 7, .end = 8}, {.start = 1, .end = 2}};
    transcript().notes.edit() = {{.start = 3}};
    const auto tags = Tags::on(source(), project);
    EXPECT_EQ(tags.at(transcript().lines[0].id), "C01.01");
    EXPECT_EQ(tags.at(transcript().lines[1].id), "C02.01");
    EXPECT_EQ(tags.at(transcript().notes[0].id), "C02.n1");
    EXPECT_THAT(ProjectSummary::text(project, {}), HasSubstr("    C02  0:00–0:10  1 line, 1 note\n"
                                                             "    C01  0:05–0:15  1 line\n"));
    EXPECT_TRUE(Tags::on(UUID::make(), project).empty());
}
