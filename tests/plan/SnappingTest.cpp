#include "core/render/plan/Snapping.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Snapping, takesTheNearestWithinReach) {
    EXPECT_EQ(Snapping::nearest(2.1, {5, 2, 3}, 0.2), 2);
    EXPECT_EQ(Snapping::nearest(2.5, {3, 2}, 0.5), 3) << "of equals the first in the list";
    EXPECT_EQ(Snapping::nearest(2.5, {3, 2}, 0.4), 2.5);
    EXPECT_EQ(Snapping::nearest(2.5, {}, 9), 2.5);
}

TEST(Snapping, movesABlockByTheEdgeThatCatchesNearest) {
    const auto onWhole = [](double time) { return Snapping::nearest(time, {0, 1, 2, 3, 4}, 0.3); };
    EXPECT_DOUBLE_EQ(Snapping::shift(0, 1.5, 1.1, onWhole), 1) << "its start catches";
    EXPECT_DOUBLE_EQ(Snapping::shift(0, 1.5, 0.6, onWhole), 0.5) << "its end catches";
    EXPECT_DOUBLE_EQ(Snapping::shift(0, 1.35, 0.9, onWhole), 1) << "both, its start nearer";
    EXPECT_DOUBLE_EQ(Snapping::shift(0, 1.3, 0.8, onWhole), 0.7) << "both, its end nearer";
    EXPECT_DOUBLE_EQ(Snapping::shift(0, 1, 0.5, onWhole), 0.5) << "neither";
}

TEST(Snapping, catchesOnEverythingButItself) {
    Video video;
    const UUID source = UUID::make();
    video.cuts = std::vector<Cut>{{.source = source, .start = 10, .end = 12},
                                  {.source = source, .start = 20, .end = 23}};
    const std::vector<Bookmark> marks{{.source = source, .at = 21}, {.source = UUID::make(), .at = 11}};
    const auto all = [&](const std::optional<UUID>& except) {
        auto times = Snapping::targets(video, marks, except);
        std::sort(times.begin(), times.end());
        times.erase(std::unique(times.begin(), times.end()), times.end());
        return times;
    };
    EXPECT_EQ(all({}), (std::vector<double>{0, 2, 3, 5}));
    const Shot shot{.source = source, .at = 22};
    video.look.emplace().shots = std::vector{shot};
    EXPECT_EQ(all({}), (std::vector<double>{0, 2, 3, 4, 5}));
    EXPECT_EQ(all(shot.id), (std::vector<double>{0, 2, 3, 5})) << "nor on where the one before it ends";
    video.look = Look();
    const Overlay overlay{.source = source, .at = 10.25, .length = 0.5};
    const SoundCue sound{.source = source, .at = 11}, song{.source = source, .at = 21, .length = 0.5};
    video.look->overlays = std::vector{overlay, Overlay{.source = source, .at = 15, .length = 1}};
    video.look->sounds = std::vector{sound};
    video.look->music = std::vector{song};
    EXPECT_EQ(all({}), (std::vector<double>{0, 0.25, 0.75, 1, 2, 3, 3.5, 5}));
    EXPECT_EQ(all(overlay.id), (std::vector<double>{0, 1, 2, 3, 3.5, 5}));
    EXPECT_EQ(all(sound.id), (std::vector<double>{0, 0.25, 0.75, 2, 3, 3.5, 5}));
    EXPECT_EQ(all(song.id), (std::vector<double>{0, 0.25, 0.75, 1, 2, 3, 5})) << "the bookmark stays";
}

TEST(Snapping, catchesOnLinesThatAreThereAndOnBothEndsOfABookmark) {
    Transcript transcript;
    transcript.lines.edit() = {{.start = 1, .end = 2}, {.start = 3, .end = 4, .gone = true}};
    EXPECT_EQ(Snapping::lineEdges(&transcript), (std::vector<double>{1, 2}));
    EXPECT_TRUE(Snapping::lineEdges(nullptr).empty());
    Video video;
    const UUID source = UUID::make();
    video.cuts = std::vector<Cut>{{.source = source, .start = 10, .end = 12}};
    const std::vector<Bookmark> marks{{.source = source, .at = 9, .end = 11.5}};
    EXPECT_EQ(Snapping::targets(video, marks, {}), (std::vector<double>{0, 2, 0, 1.5}));
}
