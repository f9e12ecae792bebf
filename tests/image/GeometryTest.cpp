#include "platform/image/Colour.h"
#include "platform/image/Frame.h"
#include "platform/image/Geometry.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Geometry, transformsActInTheOrderInWhichTheyRead) {
    const auto transform = Transform().translated(10, 0).scaled(2, 3).rotated(90).translated(100, 0);
    EXPECT_EQ(transform.apply(Point{1, 1}), (Point{100 - 3, 22}));
    const Point back = transform.inverse().apply(transform.apply(Point{4, 7}));
    EXPECT_NEAR(back.x, 4, 1e-12);
    EXPECT_NEAR(back.y, 7, 1e-12);
    EXPECT_FALSE(Transform().scaled(0, 1).invertible());
}

TEST(Geometry, quarterTurnsAreExactAndClockwise) {
    EXPECT_EQ(Transform().rotated(90).apply(Point{1, 0}), (Point{0, 1}));
    EXPECT_EQ(Transform().rotated(-270), Transform().rotated(90));
    EXPECT_EQ(Transform().rotated(180).rotated(180), Transform());
}

TEST(Geometry, rectanglesMeetAndJoin) {
    const Rect rect{1, 2, 3, 4};
    EXPECT_EQ(rect.intersection(Rect::everything()), rect);
    EXPECT_EQ(Rect::everything().intersection(rect), rect);
    EXPECT_TRUE(rect.intersection({4, 2, 1, 1}).empty());
    EXPECT_EQ(rect.united({}), rect);
    EXPECT_EQ(rect.united({0, 0, 1, 1}), (Rect{0, 0, 4, 6}));
    EXPECT_TRUE(rect.united(Rect::everything()).isEverything());
    EXPECT_TRUE(Transform().rotated(30).apply(Rect::everything()).isEverything());
}

TEST(Colours, readFromHexWhateverTheHashes) {
    const std::pair<std::string_view, std::optional<Colour>> cases[] = {
        {"ff8000", Colour{255, 128, 0, 255}},
        {"#FF8000", Colour{255, 128, 0, 255}},
        {"FF800040#", Colour{255, 128, 0, 64}},
        {"##000000", Colour::black},
        {"", std::nullopt},
        {"fff", std::nullopt},
        {"ff80zz", std::nullopt},
        {"ff#8000", std::nullopt},
        {"-12345", std::nullopt}};
    for (const auto& [text, colour] : cases) EXPECT_EQ(Colour::hex(text), colour) << text;
}

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
    frame.pixelAspect = 0;
    EXPECT_EQ(frame.uprightSize(), (Size{720, 576}));
}
