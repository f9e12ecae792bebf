#include "platform/image/Frame.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Frames, standUprightWhateverTheirTurnAndPixels) {
    Frame frame;
    frame.width = 720;
    frame.height = 576;
    frame.pixelAspect = 16.0 / 15;
    EXPECT_EQ(frame.uprightSize(), (Size{768, 576}));
    // The stored top left corner, seen upright, by turn.
    const Point corners[] = {{0, 0}, {576, 0}, {768, 576}, {0, 768}};
    for (frame.turn = 0; frame.turn < 4; ++frame.turn) {
        const Point stored = frame.toStored().apply(corners[frame.turn]);
        EXPECT_NEAR(stored.x, 0, 1e-9) << frame.turn;
        EXPECT_NEAR(stored.y, 0, 1e-9) << frame.turn;
        const Size size = frame.uprightSize();
        EXPECT_EQ(frame.toStored().apply(Rect{0, 0, size.width, size.height}), (Rect{0, 0, 720, 576}))
            << frame.turn;
    }
    frame.width = 640;
    frame.pixelAspect = 4.0 / 3;
    frame.turn = 1;
    EXPECT_EQ(frame.uprightSize(), (Size{576, 853})) << "whole pixels";
    frame.turn = -2;
    EXPECT_EQ(frame.uprightSize(), (Size{853, 576}));
    frame.turn = 0;
    frame.width = 720;
    frame.pixelAspect = 0;
    EXPECT_EQ(frame.uprightSize(), (Size{720, 576}));
}
