#include "app/desktop/viewer/PictureBox.h"

#include <gtest/gtest.h>

using namespace murbo;
using Grip = PictureBox::PictureGrip;

namespace {

constexpr Size frame{1080, 1920};

/// A box beside its pivot, as an overlay's that stands low in the frame.
PictureBox sticker(double scale = 1, double turn = 0) {
    return {{-100, 300, 200, 100}, {540, 960}, scale, turn};
}

void expectNear(const QPointF& a, const QPointF& b, const char* what) {
    EXPECT_NEAR(a.x(), b.x(), 1e-6) << what;
    EXPECT_NEAR(a.y(), b.y(), 1e-6) << what;
}

}

TEST(PictureBox, isMetWhereItIsSeenHoweverItIsTurned) {
    for (const double turn : {0.0, 30.0, 90.0, -145.0}) {
        const auto box = sticker(1.5, turn);
        EXPECT_EQ(box.at(box.centre(), 8, 40), Grip::body);
        EXPECT_EQ(box.at(box.onFrame({150, 75}), 8, 40), Grip::size) << turn;
        EXPECT_EQ(box.at(box.onFrame({0, -75 - 40}), 8, 40), Grip::turn) << turn;
        EXPECT_EQ(box.at(box.onFrame({11, -75 - 40}), 8, 40), Grip::turn) << turn;
        EXPECT_EQ(box.at(box.onFrame({13, -75 - 40}), 8, 40), Grip::none) << turn;
        EXPECT_EQ(box.at(box.onFrame({0, 75 + 40}), 8, 40), Grip::none) << turn;
        expectNear(box.onFrame(box.local({12, 34})), {12, 34}, "there and back");
    }
}

TEST(PictureBox, growsAndTurnsAboutItsOwnMiddle) {
    for (const double turn : {0.0, 30.0, 200.0}) {
        const auto box = sticker(1, turn);
        const auto larger = box.sized(box.onFrame({100, 50}), box.onFrame({200, 100}), 8);
        EXPECT_NEAR(larger.scale, 2, 1e-9);
        expectNear(larger.centre(), box.centre(), "grown");
        const auto wider = box.sized(box.onFrame({100, 0}), box.onFrame({150, 400}), 8);
        EXPECT_NEAR(wider.scale, 1.5, 1e-9) << "an edge minds the way across alone";
        const auto turned = box.turned(box.onFrame({0, -90}), box.onFrame({90, 0}), false);
        EXPECT_NEAR(turned.turn - box.turn, 90, 3.01);
        expectNear(turned.centre(), box.centre(), "turned");
    }
    EXPECT_EQ(sticker().sized(sticker().onFrame({100, 50}), sticker().centre(), 8).scale,
              PictureBox::minScale);
    EXPECT_EQ(sticker(7).sized(sticker(7).onFrame({700, 350}), {9000, 9000}, 8).scale, PictureBox::maxScale);
}

TEST(PictureBox, aTurnCatchesAtQuartersAndWithStepsAtFifteenDegrees) {
    const auto box = sticker();
    const auto pulled = [&](double degrees, bool steps) {
        const double angle = (degrees - 90) * 3.14159265358979 / 180;
        return box.turned(box.onFrame({0, -90}), box.onFrame({90 * cos(angle), 90 * sin(angle)}), steps).turn;
    };
    EXPECT_NEAR(pulled(2, false), 0, 1e-9);
    EXPECT_NEAR(pulled(88, false), 90, 1e-9);
    EXPECT_NEAR(pulled(40, false), 40, 1e-6);
    EXPECT_NEAR(pulled(40, true), 45, 1e-9);
    EXPECT_NEAR(pulled(-170, false), -170, 1e-6) << "the short way round";
}

TEST(PictureGuides, catchAtTheMiddleAndTheThirds) {
    const auto middle = PictureGuides::at({543, 900}, frame, 6);
    EXPECT_EQ(middle.x, 540);
    EXPECT_FALSE(middle.y);
    EXPECT_EQ(middle.shift, QPointF(-3, 0));
    EXPECT_EQ(PictureGuides::at({700, 644}, frame, 6).y, 640);
    EXPECT_EQ(PictureGuides::at({714, 1274}, frame, 6).shift, QPointF(6, 6)) << "two thirds";
    EXPECT_EQ(PictureGuides::at({713, 1273}, frame, 6).shift, QPointF());
    EXPECT_EQ(PictureGuides::at({540, 960}, frame, 6).shift, QPointF());
}

TEST(PlacedMove, aMoveGoesAlongAsAWhole) {
    const auto from = sticker();
    auto to = from.movedBy({108, -192});
    to.scale = 2;
    to.turn = 10;
    const auto still = PlacedMove::changed({}, from, to, frame, 0.5);
    EXPECT_NEAR(*still.from->x, 0.6, 1e-9);
    EXPECT_NEAR(*still.from->y, 0.4, 1e-9);
    EXPECT_EQ(still.from->scale, 2);
    EXPECT_EQ(still.from->rotation, 10);
    EXPECT_FALSE(still.to);

    Move going{.from = Placement{.x = 0.2}, .to = Placement{.x = 0.8, .y = 0.9}, .enter = "pop"};
    const auto moved = PlacedMove::changed(going, from, to, frame, 0.3);
    EXPECT_NEAR(*moved.from->x, 0.3, 1e-9);
    EXPECT_NEAR(*moved.to->x, 0.9, 1e-9);
    EXPECT_NEAR(*moved.from->y, 0.4, 1e-9) << "a way whose beginning is not said begins in the middle";
    EXPECT_NEAR(*moved.to->y, 0.8, 1e-9);
    EXPECT_FALSE(moved.to->scale) << "what it kept by itself it keeps";
    EXPECT_EQ(moved.enter, "pop");
    going.to = Placement{.scale = 1.5, .rotation = -30};
    const auto grown = PlacedMove::changed(going, from, to, frame, 0.3);
    EXPECT_EQ(grown.to->scale, 3);
    EXPECT_EQ(grown.to->rotation, -20);
    EXPECT_EQ(grown.from->scale, 2);
    EXPECT_FALSE(grown.to->x);
    EXPECT_NEAR(*grown.from->y, 0.2, 1e-9);
    going.to->scale = 5;
    EXPECT_EQ(PlacedMove::changed(going, from, to, frame, 0.3).to->scale, PictureBox::maxScale);
}

TEST(PlacedMove, whatWasNotMovedStaysUnsaid) {
    const auto from = sticker();
    const auto up = PlacedMove::changed({}, from, from.movedBy({0, 96}), frame, 0.3);
    EXPECT_FALSE(up.from->x);
    EXPECT_NEAR(*up.from->y, 0.35, 1e-9) << "from where a caption stood by itself";
    EXPECT_FALSE(up.from->scale);
    EXPECT_FALSE(up.from->rotation);
    EXPECT_EQ(*PlacedMove::changed({}, from, from.movedBy({1e9, 0}), frame, 0.5).from->x, 3);
}
