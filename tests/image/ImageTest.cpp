#include "platform/image/Image.h"
#include "platform/image/ImageNode.h"
#include "tests/image/Pictures.h"

#include <gtest/gtest.h>

using namespace murbo;
using namespace murbo::Pictures;

namespace {

template <typename Kind>
bool is(const Image& image) {
    return std::holds_alternative<Kind>(image.node()->kind);
}

}

TEST(Images, knowTheirExtentWithoutDrawing) {
    const Image image = box({0, 0, 100, 50}, Colour::white);
    EXPECT_TRUE(Image().empty());
    EXPECT_TRUE(Image::colour(Colour::clear).empty());
    EXPECT_TRUE(Image::colour(Colour::white).extent().isEverything());
    EXPECT_EQ(image.transformed(Transform().rotated(90)).extent(), (Rect{-50, 0, 50, 100}));
    EXPECT_EQ(image.over(box({0, 0, 20, 200}, Colour::white)).extent(), (Rect{0, 0, 100, 200}));
    EXPECT_TRUE(image.clamped().extent().isEverything());
    EXPECT_EQ(image.motionBlurred(10, 90).extent(), (Rect{0, -10, 100, 70}));
    EXPECT_NEAR(image.zoomBlurred({50, 25}, 5).extent().width, 110, 1);
    const Rect smeared = image.zoomBlurred({0, 50}, 5).extent(); // away from the lower left corner
    EXPECT_EQ(std::pair(smeared.x, smeared.y + smeared.height), std::pair(0.0, 50.0));
    EXPECT_NEAR(smeared.width, 110.5, 0.1);
    EXPECT_NEAR(smeared.height, 55.3, 0.1);
    EXPECT_TRUE(image.cropped({200, 0, 10, 10}).empty());
    EXPECT_TRUE(image.faded(0).empty());
    EXPECT_TRUE(image.transformed(Transform().scaled(0, 1)).empty());
    EXPECT_TRUE(image.transformed({std::nan(""), 0, 0, 1, 0, 0}).empty());
    EXPECT_TRUE(image.cropped({0, 0, std::nan(""), 1}).empty());
}

TEST(Images, joinWhatBelongsTogether) {
    const Image image = box({0, 0, 100, 50}, Colour::white);
    const auto moved = image.transformed(Transform().translated(5, 5)).transformed(Transform().scaled(2, 2));
    ASSERT_TRUE(is<ImageNode::Transformed>(moved));
    EXPECT_EQ(std::get<ImageNode::Transformed>(moved.node()->kind).transform,
              Transform().translated(5, 5).scaled(2, 2));
    const auto faded = image.faded(0.5).faded(0.5);
    EXPECT_EQ(std::get<ImageNode::Fade>(faded.node()->kind).opacity, 0.25);
    EXPECT_EQ(image.cropped({-1, -1, 200, 200}).node(), image.node());
    EXPECT_EQ(image.transformed(Transform().scaled(4, 4)).transformed(Transform().scaled(0.25, 0.25)).node(),
              image.node());
    EXPECT_EQ(image.over(box({0, 0, 10, 10}, Colour::white)).node(), image.node())
        << "what is hidden is let go";
    EXPECT_EQ(image.motionBlurred(0, 30).node(), image.node());
    EXPECT_EQ(image.zoomBlurred({}, std::nan("")).node(), image.node());
}
