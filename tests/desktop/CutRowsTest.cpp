#include "app/desktop/inspector/CutRows.h"
#include "tests/desktop/InspectedVideo.h"

using namespace murbo;

TEST(CutRows, trimACutByWhatIsTyped) {
    InspectedVideo video;
    const auto cut = [&]() -> const Cut& { return video.cut(0); };
    video.pick(Pick::Kind::cut, cut().id);
    EXPECT_EQ(video.inspection.title(), "C01.01");
    EXPECT_EQ(video.inspection.note(), "Cut 1 of 3");
    const auto before = video.steps();
    video.inspection.set("in", 11);
    EXPECT_EQ(cut().start, 11);
    video.inspection.set("length", 2);
    EXPECT_EQ(cut().end, 13);
    EXPECT_EQ(video.steps(), before + 2);
    video.inspection.set("out", 5000);
    EXPECT_EQ(cut().end, 100) << "not past the end of the footage";
    video.inspection.drag("in", 3);
    EXPECT_EQ(cut().start, 11) << "ends are dragged on the timeline";
    video.inspection.set("role", "hook");
    EXPECT_EQ(cut().role, "hook");
    video.inspection.set("mute", true);
    EXPECT_EQ(cut().muted, true);
    EXPECT_EQ(video.step(), "Mute Clip");
}
