#include "tests/desktop/OnWindow.h"

using namespace murbo;

using TransportTest = OnWindow<WindowOfProject>;

TEST_F(TransportTest, itsButtonsPlayAndGoFrameByFrame) {
    shown->window().resize(1920, 1080);
    shown->editor().holdClip(shown->editor().project().clips[0].id);
    auto& player = shown->editor().source;
    ASSERT_TRUE(QTest::qWaitFor([&] { return player.isLoaded(); }, 5000));
    shown->settle();
    const auto press = [&](const char* name) { shown->clickOn(shown->named(name)); };
    press("One frame on");
    EXPECT_NEAR(player.time(), 1 / player.frameRate(), 1e-6);
    press("One frame back");
    EXPECT_NEAR(player.time(), 0, 1e-6);
    press("Play");
    EXPECT_EQ(player.rate(), 1);
    EXPECT_EQ(shown->editor().playback.rate(), 0);
    press("Pause");
    EXPECT_EQ(player.rate(), 0);
}

TEST_F(TransportTest, theWordsOfARangeLeaveTheButtonsBesideThemFree) {
    shown->editor().holdClip(shown->editor().project().clips[0].id);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown->editor().source.isLoaded(); }, 5000));
    shown->editor().setFocus(Viewer::source);
    shown->editor().setRange(Stretch{1, 2.5});
    for (const int width : {1280, 1920}) {
        shown->window().resize(width, 800);
        shown->settle();
        const auto* last = shown->named("Add to end");
        const auto* next = shown->named("Silence the viewers");
        ASSERT_TRUE(last && next) << width;
        EXPECT_GE(next->mapToScene({}).x(), last->mapToScene({last->width(), 0}).x()) << width;
    }
}
