#include "app/desktop/inspector/OverlayRows.h"
#include "tests/desktop/InspectedVideo.h"

using namespace murbo;

TEST(OverlayRows, placeAnOverlay) {
    InspectedVideo video;
    const auto overlay = [&]() -> const Overlay& { return video.look().overlays[0]; };
    video.pick(Pick::Kind::overlay, overlay().id);
    video.inspection.set("from.x", 20);
    EXPECT_NEAR(*overlay().move->from->x, 0.2, 1e-9);
    EXPECT_FALSE(video.inspection.row("to.x"));
    video.inspection.set("moves", true);
    video.inspection.set("to.rotation", 90);
    EXPECT_EQ(overlay().move->to->rotation, 90);
    EXPECT_NEAR(*overlay().move->to->x, 0.2, 1e-9) << "it starts to move from where it is";
    video.inspection.set("ease", 1);
    EXPECT_EQ(overlay().move->ease, "linear");
    video.inspection.set("enter", 2);
    EXPECT_EQ(overlay().move->enter, "fade");
    for (const auto* row : {"moves", "from.x", "enter"}) video.inspection.reset(row);
    EXPECT_EQ(overlay().move, std::nullopt);
    video.inspection.set("length", 0.01);
    EXPECT_EQ(overlay().length, 0.2) << "never shorter than can be seen";
    video.inspection.set("mute", true);
    EXPECT_EQ(overlay().mute, true);
}
