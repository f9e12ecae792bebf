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
