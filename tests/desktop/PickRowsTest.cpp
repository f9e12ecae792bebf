#include "app/desktop/inspector/PickRows.h"
#include "tests/desktop/InspectedVideo.h"

using namespace murbo;

TEST(PickRows, ofSeveralAreWhatTheyShare) {
    InspectedVideo video;
    video.pickBothOverlays();
    EXPECT_EQ(video.inspection.kind(), "several");
    EXPECT_EQ(video.inspection.title(), "2 items");
    ASSERT_TRUE(video.inspection.row("mute"));
    EXPECT_TRUE(video.inspection.row("mute")->mixed);
    EXPECT_FALSE(video.inspection.row("from.x")->mixed);
    EXPECT_FALSE(video.inspection.row("picture"));
    const auto before = video.steps();
    video.inspection.set("mute", true);
    video.inspection.set("from.scale", 150);
    EXPECT_EQ(video.steps(), before + 2);
    for (const auto& overlay : video.look().overlays) {
        EXPECT_EQ(overlay.mute, true);
        EXPECT_NEAR(*overlay.move->from->scale, 1.5, 1e-9);
    }
    video.editor.undo();
    video.editor.undo();
    EXPECT_EQ(video.look().overlays[0].mute, std::nullopt);
    EXPECT_EQ(video.look().overlays[1].mute, true) << "each as it was";

    // Of other kinds: what remains is common to all.
    video.editor.setMorePicked({Pick{Pick::Kind::sound, video.look().sounds[0].id, {}},
                                Pick{Pick::Kind::music, video.look().music[0].id, {}}});
    video.pick(Pick::Kind::cut, video.cut(1).id);
    EXPECT_EQ(video.inspection.count(), 3);
    EXPECT_EQ(video.ids(), "mute ");
    video.inspection.set("mute", true);
    EXPECT_EQ(video.cut(1).muted, true);
    EXPECT_EQ(video.look().sounds[0].muted, true);
    EXPECT_EQ(video.look().music[0].muted, true);
    video.inspection.removePicked();
    EXPECT_EQ(video.step(), "Remove 3 Items");
    EXPECT_EQ(video.inspection.kind(), "video");
}
