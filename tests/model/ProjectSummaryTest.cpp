#include "core/model/ProjectSummary.h"
#include "core/model/Tags.h"

#include <cmath>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

Line line(double start, double end) {
    Line made;
    made.start = start;
    made.end = end;
    return made;
}

Clip clip(const Source& source, std::int64_t number, double start, double end) {
    Clip made;
    made.number = number;
    made.source = source.id;
    made.start = start;
    made.end = end;
    return made;
}

/// One stream recording of an hour, in one group.
Project recording() {
    Project project;
    SourceGroup group;
    group.name = "Stream";
    project.groups.edit().push_back(group);
    Source source;
    source.group = group.id;
    source.kind = Source::Kind::stream;
    source.path = "/footage/rec.mp4";
    source.length = 3723;
    project.sources.edit().push_back(source);
    return project;
}

}

TEST(ProjectSummary, tellsAProjectLineByLine) {
    auto project = recording();
    const auto source = project.sources[0];
    auto& transcript = project.transcripts[source.id];
    for (int at = 0; at < 120; ++at)
        transcript.lines.edit().push_back(line(at < 4 ? 13 + at : 1000 + at, 20 + at));
    for (const double at : {20.0, 30.0, 500.0, 501.0, 502.0}) {
        Note note;
        note.start = note.end = at;
        transcript.notes.edit().push_back(note);
    }
    auto second = clip(source, 2, 120, 150);
    second.part = "a";
    auto first = clip(source, 1, 12.9, 83.4);
    first.rating = 1;
    first.summary = Clip::Summary{"The big fall", ""};
    project.clips = std::vector{second, first};
    Bookmark bookmark;
    bookmark.number = 1;
    bookmark.source = source.id;
    bookmark.at = 10;
    bookmark.note = "check this";
    project.bookmarks = std::vector{bookmark};
    Video video;
    video.number = 2;
    video.title = "First cut";
    Cut cut;
    cut.end = 12.5 / 3;
    video.cuts = std::vector{cut, cut, cut};
    project.videos = std::vector{video};
    EXPECT_EQ(ProjectSummary::text(project, {source.id}),
              "Stream\n"
              "  rec.mp4  stream, 1:02:03, 120 lines  (missing)\n"
              "    C01  0:12–1:23  4 lines, 2 notes  ★  The big fall\n"
              "    C02a  2:00–2:30  0 lines\n"
              "B1  rec.mp4 0:10  check this\n"
              "V2  First cut  9:16, 3 cuts, 12.5 s\n"
              "1 source (1 missing), 2 clips, 120 lines, 5 notes, 1 bookmark, 1 video");
}

TEST(ProjectSummary, tellsWhatPointsNowhere) {
    auto project = recording();
    project.sources.edit()[0].group = UUID::make();
    project.transcripts[project.sources[0].id].lines.edit().emplace_back();
    auto rejected = clip(project.sources[0], 1, 0, 1);
    rejected.rating = -1;
    project.clips = std::vector{rejected};
    Bookmark bookmark;
    bookmark.number = 3;
    project.bookmarks = std::vector{bookmark};
    EXPECT_EQ(ProjectSummary::text(project, {}),
              "Stream\nB3  ? 0:00\n1 source (0 missing), 1 clip, 0 lines, 0 notes, 1 bookmark, 0 videos");
    project.sources.edit()[0].group = project.groups[0].id;
    EXPECT_THAT(ProjectSummary::text(project, {}), testing::HasSubstr("    C01  0:00–0:01  1 line  ✕\n"));
    EXPECT_EQ(ProjectSummary::text(Project(), {}),
              "0 sources (0 missing), 0 clips, 0 lines, 0 notes, 0 bookmarks, 0 videos");
}

TEST(ProjectSummary, clocksRoundDownAndNeverEndTheProcess) {
    const auto infinity = std::numeric_limits<double>::infinity();
    for (const auto& [seconds, shown] : {std::pair{0.0, "0:00"},
                                         {59.99, "0:59"},
                                         {3599.9, "59:59"},
                                         {3600.0, "1:00:00"},
                                         {360000.0, "100:00:00"},
                                         {-0.5, "-0:01"},
                                         {infinity, "?"},
                                         {-infinity, "?"},
                                         {std::nan(""), "?"},
                                         {1e300, "?"}})
        EXPECT_EQ(ProjectSummary::clock(seconds), shown);
}

TEST(Tags, belongToLinesByTheirMiddle) {
    auto project = recording();
    const auto source = project.sources[0];
    project.clips = std::vector{clip(source, 5, 10, 20), clip(source, 100, 40, 50)};
    project.clips.edit()[0].part = "b";
    // Starts and ends; the third and fourth begin together and keep their order.
    const std::pair<double, double> times[] = {{20, 20}, {10, 10}, {12, 30}, {12, 13},
                                               {12, 14}, {8, 14},  {44, 45}};
    auto& lines = project.transcripts[source.id].lines.edit();
    for (const auto& [start, end] : times) lines.push_back(line(start, end));
    lines[4].gone = true;
    const auto tags = Tags::on(source.id, project);
    const auto tag = [&](std::size_t at) {
        return tags.contains(lines[at].id) ? tags.at(lines[at].id) : "none";
    };
    const std::vector<std::string> expected{"none",    "C05b.02", "none",   "C05b.03",
                                            "C05b.04", "C05b.01", "C100.01"};
    for (std::size_t at = 0; at < expected.size(); ++at) EXPECT_EQ(tag(at), expected[at]) << at;
}

TEST(Tags, theLaterOfTwoOverlappingClipsNamesTheLine) {
    auto project = recording();
    const auto source = project.sources[0];
    project.clips = std::vector{clip(source, 2, 0, 10), clip(source, 1, 5, 15)};
    auto& transcript = project.transcripts[source.id];
    transcript.lines = std::vector{line(7, 8), line(1, 2)};
    transcript.notes.edit().emplace_back().start = 3;
    const auto tags = Tags::on(source.id, project);
    EXPECT_EQ(tags.at(transcript.lines[0].id), "C01.01");
    EXPECT_EQ(tags.at(transcript.lines[1].id), "C02.01");
    EXPECT_EQ(tags.at(transcript.notes[0].id), "C02.n1");
    EXPECT_THAT(ProjectSummary::text(project, {}),
                testing::AllOf(testing::HasSubstr("C02  0:00–0:10  1 line, 1 note\n"),
                               testing::HasSubstr("C01  0:05–0:15  1 line\n")));
    EXPECT_TRUE(Tags::on(UUID::make(), project).empty());
}

TEST(Tags, havingNumbersOfAnyLength) {
    for (const auto& [number, text] : {std::pair{0, "00"}, {7, "07"}, {10, "10"}, {123, "123"}})
        EXPECT_EQ(Tags::twoDigits(number), text);
    Video video;
    video.number = 5;
    EXPECT_EQ(video.tag(), "V5");
    video.part = "b";
    EXPECT_EQ(video.tag(), "V5b");
}
