#include "tests/desktop/WindowOfProject.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// A button of the window's by its name, the one that lies furthest left.
QQuickItem* button(QQuickWindow& window, const QString& name) {
    QQuickItem* found = nullptr;
    for (auto* item : window.findChildren<QQuickItem*>()) {
        if (item->property("name").toString() != name || !item->isVisible()) continue;
        if (!found || item->mapToScene({0, 0}).x() < found->mapToScene({0, 0}).x()) found = item;
    }
    return found;
}

}

TEST(Transport, itsButtonsPlayAndGoFrameByFrame) {
    MURBO_NEEDS_FFMPEG();
    WindowOfProject shown;
    shown.window().resize(1920, 1080);
    shown.editor().holdClip(shown.editor().project().clips[0].id);
    auto& player = shown.editor().source;
    ASSERT_TRUE(QTest::qWaitFor([&] { return player.isLoaded(); }, 5000));
    shown.settle();
    const auto press = [&](const QString& name) {
        auto* item = button(shown.window(), name);
        ASSERT_TRUE(item) << name.toStdString();
        const auto middle = item->mapToScene({item->width() / 2, item->height() / 2});
        shown.click(middle.x(), middle.y());
    };
    press("One frame on");
    EXPECT_NEAR(player.time(), 1 / player.frameRate(), 1e-6);
    press("One frame back");
    EXPECT_NEAR(player.time(), 0, 1e-6);
    press("Play");
    EXPECT_EQ(player.rate(), 1);
    EXPECT_EQ(shown.editor().playback.rate(), 0);
    press("Pause");
    EXPECT_EQ(player.rate(), 0);
    EXPECT_EQ(Complaints::list(), "");
}
