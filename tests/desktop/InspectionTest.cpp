#include "app/desktop/inspector/Inspection.h"
#include "tests/desktop/InspectedVideo.h"

#include <QTest>

using namespace murbo;

using InspectionTest = OnVideo<InspectedVideo>;

/// By keys nothing says when a drag ends.
TEST_F(InspectionTest, aDragThatRestsIsAStep) {
    video.pick(Pick::Kind::shot, video.look().shots[0].id);
    const auto before = video.steps();
    video.inspection.drag("zoom", 3.0);
    ASSERT_TRUE(QTest::qWaitFor([&] { return video.steps() == before + 1; }, 3000));
    EXPECT_EQ(video.step(), "Change Zoom");
    video.inspection.release();
    EXPECT_EQ(video.steps(), before + 1);
}

TEST_F(InspectionTest, whatIsGoneIsNotChanged) {
    video.pick(Pick::Kind::shot, video.look().shots[1].id);
    video.inspection.drag("zoom", 3.0);
    video.editor.apply([](Project& project) { project.videos.edit()[0].look->shots.edit().pop_back(); });
    EXPECT_EQ(video.inspection.kind(), "video") << "the pick went with it";
    const auto before = video.editor.project();
    video.inspection.set("zoom", 2.0);
    video.inspection.drag("zoom", 2.0);
    video.inspection.press("takeOutQuiet");
    video.inspection.takeRange("value.clip");
    EXPECT_EQ(video.editor.project(), before);
    video.inspection.release();
    EXPECT_EQ(video.look().shots.size(), 1);
}
