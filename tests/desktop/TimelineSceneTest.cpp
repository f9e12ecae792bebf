#include "app/desktop/timeline/TimelineScene.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(TimelineScene, timesOnTheRulerNeitherTouchNorLieFarApart) {
    for (double scale = 0.01; scale < 1000; scale *= 1.3) {
        const double step = TimelineScene::rulerStep(scale);
        EXPECT_TRUE(step * scale >= 64 || step == 14400) << scale;
        EXPECT_TRUE(step * scale < 160 || step == 0.1) << scale;
    }
}
