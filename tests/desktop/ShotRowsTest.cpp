#include "app/desktop/inspector/ShotRows.h"
#include "tests/desktop/InspectedVideo.h"

using namespace murbo;

TEST(ShotRows, setAShotAndPutItBack) {
    InspectedVideo video;
    video.pick(Pick::Kind::shot, video.look().shots[1].id);
    EXPECT_EQ(video.inspection.kind(), "shot");
    EXPECT_EQ(video.inspection.note(), "Shot at 0:05.00");
    EXPECT_TRUE(video.changed("zoom"));
    EXPECT_FALSE(video.inspection.row("ease")) << "nothing moves";
    const auto shot = [&]() -> const Shot& { return video.look().shots[1]; };
    video.inspection.set("move", 4);
    EXPECT_EQ(shot().move, "pan-left");
    video.inspection.set("ease", 2);
    EXPECT_EQ(shot().ease, "snap");
    video.inspection.set("transition", 1);
    EXPECT_EQ(shot().transition, "flash");
    video.inspection.set("focus", 25);
    EXPECT_NEAR(*shot().focus, 0.25, 1e-9);
    const auto steps = video.steps();
    video.inspection.reset("move");
    EXPECT_EQ(shot().move, std::nullopt);
    EXPECT_EQ(shot().ease, std::nullopt) << "its row has gone with the move's";
    EXPECT_EQ(video.steps(), steps + 1);
    for (const auto* row : {"transition", "focus", "zoom"}) video.inspection.reset(row);
    EXPECT_EQ(shot().transition, std::nullopt);
    EXPECT_EQ(shot().focus, std::nullopt);
    EXPECT_EQ(shot().zoom, 1);

    video.inspection.set("layout", "face");
    EXPECT_EQ(shot().layout, Shot::Layout::face);
    EXPECT_EQ(video.step(), "Cut to Face");
    EXPECT_FALSE(video.inspection.row("split")) << "a face has no seam";
    video.inspection.set("layout", "stock.layout.corner");
    EXPECT_EQ(shot().playbook, "stock.layout.corner");
    EXPECT_EQ(shot().version, 1);
    EXPECT_EQ(video.at("layout"), "stock.layout.corner");
    video.inspection.set("layout", "no.such.layout");
    EXPECT_EQ(shot().playbook, "stock.layout.corner");
    video.inspection.set("layout", "split");
    EXPECT_EQ(shot().playbook, std::nullopt);
}
