#include "core/model/ProjectSummary.h"

#include <algorithm>
#include <cmath>

#include <gmock/gmock.h>

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
    project.clips.edit() = {clip(1, 514, 516), clip(1, 12.9, 83.4), clip(2, 12.9, 12.95)};
    project.clips.edit()[0].part.emplace("a");
    project.clips.edit()[1].rating = 1;
    project.clips.edit()[1].summary.emplace(Clip::Summary{"The big fall", ""});
    project.bookmarks.edit() = {{.number = 1, .source = source(), .at = 10, .note = "check this"}};
    project.videos.edit() = {{.number = 2, .title = "First cut"}};
    project.videos.edit()[0].cuts = std::vector<Cut>(3, {.end = 12.5 / 3});
    EXPECT_EQ(ProjectSummary::text(project, {source()}),
              "Stream\n"
              "  rec.mp4  stream, 1:02:03, 120 lines  (missing)\n"
              "    C01  0:12–1:23  4 lines, 2 notes  ★  The big fall\n"
              "    C02  0:12–0:12  0 lines\n"
              "    C01a  8:34–8:36  2 lines\n"
              "B1  rec.mp4 0:10  check this\n"
              "V2  First cut  9:16, 3 cuts, 12.5 s\n"
              "1 source (1 missing), 3 clips, 120 lines, 5 notes, 1 bookmark, 1 video");
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
    const auto text = ProjectSummary::text(project, {}); // takes 17 s where each looks at all
    EXPECT_EQ(std::ranges::count(text, '\n'), 80'000);
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
