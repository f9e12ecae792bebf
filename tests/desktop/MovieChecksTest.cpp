#include "app/desktop/exports/MovieChecks.h"
#include "core/model/Settings.h"
#include "tests/desktop/TimelineVideo.h"

using namespace murbo;
using MovieChecks::Finding;

TEST(MovieChecks, nameTheEdgesThatCutSomebodyOffAndTheFilesThatAreGone) {
    auto project = TimelineVideo::made();
    auto& video = project.videos.edit()[0];
    EXPECT_TRUE(MovieChecks::ofCuts(project, video, {}).empty());

    auto& cuts = video.cuts.edit();
    cuts[0].end = 12;     // "first line" goes on until 13
    cuts[1].start = 31.5; // "second line" has begun at 31
    cuts[2].end = 53.98;  // within what nobody hears
    const auto found = MovieChecks::ofCuts(project, video, {});
    ASSERT_EQ(found.size(), 2);
    EXPECT_EQ(found[0].words, "Cut 1 ends inside “first line”");
    EXPECT_EQ(found[0].fix, (Finding::BetterEdge{false, 13}));
    EXPECT_EQ(found[0].time, 1.5);
    EXPECT_EQ(found[1].words, "Cut 2 starts inside “second line”");
    EXPECT_EQ(found[1].fix, (Finding::BetterEdge{true, 31}));

    cuts[1] = {.source = cuts[0].source, .start = 12, .end = 14};
    EXPECT_TRUE(MovieChecks::ofCuts(project, video, {}).empty()) << "a split line that goes on is whole";

    const auto gone = MovieChecks::ofCuts(project, video, {project.sources[0].id});
    ASSERT_EQ(gone.size(), 3);
    EXPECT_EQ(gone[0].words, "Cut 1 has no file: it would be black and silent");
}

TEST(MovieChecks, nameTheCaptionsThatAnAppCovers) {
    auto project = TimelineVideo::made();
    auto& video = project.videos.edit()[0];
    const auto found = [&](const MovieChecks::CoveredEdges& app) {
        const auto plan = Plan::video(video, project, Settings::captionFonts(), {});
        return MovieChecks::ofCaptions(plan, {app}, {});
    };
    EXPECT_TRUE(found({"App", 0.02, 0.05, 0.02, 0.05}).empty());
    const auto covered = found({"App", 0.02, 0.05, 0.02, 0.7});
    const auto cues = Plan::video(video, project, "", {}).cues;
    ASSERT_EQ(covered.size(), cues.size());
    for (std::size_t at = 0; at < cues.size(); ++at) {
        const auto& cue = cues[at];
        EXPECT_EQ(covered[at].words, "Caption “" + cue.text + "” leaves the safe area of App");
        EXPECT_EQ(covered[at].pick, (Pick{Pick::Kind::caption, cue.line, cue.piece}));
        EXPECT_EQ(covered[at].time, (cue.start + cue.end) / 2);
    }
}
