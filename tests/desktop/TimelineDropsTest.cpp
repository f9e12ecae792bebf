#include "app/desktop/timeline/TimelineDrops.h"
#include "tests/desktop/OnWindow.h"
#include "tests/desktop/TimelineVideo.h"

using namespace murbo;

using TimelineDropsTest = OnWindow<WindowOfProject>;

TEST(TimelineDrops, clipsLandBetweenTheCuts) {
    TimelineVideo video;
    const auto before = video.editor.project();
    video.editor.holdClip(video.editor.project().clips[0].id);
    video.editor.setRange(Stretch{60, 62});
    EXPECT_NEAR(TimelineDrops::seam(video.editor, 5), 4, 1e-9);
    EXPECT_NEAR(TimelineDrops::seam(video.editor, 99), 12, 1e-9);
    EXPECT_EQ(TimelineDrops::landing(video.editor, 5), (PartedRow::Landing{std::nullopt, 1, 2}));
    EXPECT_TRUE(TimelineDrops::clips(video.editor, 5));
    ASSERT_EQ(video.editor.video()->cuts.size(), 4);
    EXPECT_EQ(video.cut(1).start, 60);
    video.editor.undo();
    EXPECT_EQ(video.editor.project(), before);
    video.editor.holdClip({});
    EXPECT_FALSE(TimelineDrops::landing(video.editor, 5));
    EXPECT_FALSE(TimelineDrops::clips(video.editor, 5)) << "nothing is offered";
}

TEST(TimelineDrops, filesGoByWhatTheyAre) {
    TimelineVideo video;
    const auto before = video.editor.project();
    const auto song = video.folder.file("Song.MP3", "song");
    const auto picture = video.folder.file("map.png", "picture");
    const auto movie = video.folder.file("more.mp4", "movie");
    const auto words = video.folder.file("list.txt", "words");
    MediaArrivals arrivals(video.editor);
    const auto drop = [&](const std::vector<std::filesystem::path>& files, TimelineRow row) {
        auto dropped = TimelineDrops::files(video.editor, files, 5, row);
        arrivals.take(dropped.arriving);
        arrivals.finish();
        return dropped.left;
    };
    EXPECT_EQ(drop({song, picture, movie, words}, TimelineRow::music), (std::vector{movie, words}));
    const auto& look = *video.editor.video()->look;
    EXPECT_EQ(look.music.size(), 1);
    EXPECT_EQ(look.sounds.size(), 1) << "the one that was there";
    EXPECT_EQ(look.overlays.size(), 1);
    EXPECT_EQ(drop({movie}, TimelineRow::overlays).size(), 0);
    EXPECT_EQ(video.editor.video()->look->overlays.size(), 2);
    for (int step = 0; step < 3; ++step) video.editor.undo();
    EXPECT_EQ(video.editor.project(), before);
}

/// A fast hand's moves come as one to a program that is busy.
TEST_F(TimelineDropsTest, aClipIsCarriedFromTheBrowserByTheMouse) {
    shown->putIn(); // a new video, and the browser shows videos
    shown->editor().setSidebar({Collection::sources, shown->editor().project().sources[0].id});
    shown->settle();
    const auto before = shown->editor().project();
    auto* timeline = shown->item<TimelineView>();
    ASSERT_TRUE(QTest::qWaitFor([&] { return timeline->blockCount() > 0; }, 5000));
    shown->carry({150, 41 + 44 + 66 / 2 * 3}, shown->onTimeline(0.4), 1, [&] {
        EXPECT_TRUE(QTest::qWaitFor([&] { return timeline->dropX() >= 0; }, 2000))
            << "it is shown where it would land";
    });
    EXPECT_LT(timeline->dropX(), 0);
    EXPECT_EQ(shown->cuts(), 2);
    EXPECT_EQ(shown->step(), "Add Clip");
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown->editor().project(), before);
}
