#include "app/desktop/viewer/FramingEdit.h"

#include <gtest/gtest.h>

using namespace murbo;
using BoxHandles::BoxHandle;
using FramingEdit::FramingPart;

namespace {

double area(const std::vector<QRectF>& parts) {
    double sum = 0;
    for (const auto& part : parts) sum += part.width() * part.height();
    return sum;
}

}

TEST(FramingEdit, eyesThenFaceThenContentAreTaken) {
    const Framing framing; // the content is all of the picture
    const QSizeF reach(0.01, 0.01);
    EXPECT_EQ(FramingEdit::at(framing, FramingEdit::eyes(framing), reach).part, FramingPart::eyes);
    EXPECT_EQ(FramingEdit::at(framing, {0.65, 0.9}, reach),
              (FramingEdit::FramingGrip{FramingPart::face, BoxHandle::body}));
    EXPECT_EQ(FramingEdit::at(framing, {0.3, 0.3}, reach),
              (FramingEdit::FramingGrip{FramingPart::content, BoxHandle::body}));
    EXPECT_EQ(FramingEdit::at(framing, {0.7, 0.999}, reach).part, FramingPart::face)
        << "of two edges at one place the face's";
    EXPECT_EQ(FramingEdit::at({.content = {0, 0, 0.5, 1}}, {0.8, 0.2}, reach).handle, BoxHandle::none);
    const Framing crossing{.content = {0, 0, 0.7, 0.7}};
    EXPECT_EQ(FramingEdit::at(crossing, {0.7, 0.5}, reach),
              (FramingEdit::FramingGrip{FramingPart::content, BoxHandle::right}))
        << "an edge that lies on the other's body is still to be had";
}

TEST(FramingEdit, nothingLeavesThePicture) {
    const Framing framing;
    for (const auto part : {FramingPart::content, FramingPart::face, FramingPart::eyes, FramingPart::split})
        for (const auto handle : {BoxHandle::body, BoxHandle::topLeft, BoxHandle::bottomRight})
            for (const QPointF by : {QPointF(9, 9), {-9, -9}, {0.1, -0.2}}) {
                const auto now = FramingEdit::pulled(framing, {part, handle}, by);
                EXPECT_TRUE(QRectF(0, 0, 1 + 1e-9, 1 + 1e-9).contains(FramingEdit::rect(now.face)));
                EXPECT_GE(now.content.w, FramingEdit::smallest - 1e-9);
                EXPECT_GE(now.split, FramingEdit::minPanel);
                EXPECT_LE(now.split, 1 - FramingEdit::minPanel);
                if (now.eyes) {
                    EXPECT_TRUE(QRectF(0, 0, 1.001, 1.001).contains({now.eyes->x, now.eyes->y}));
                }
            }
}

TEST(FramingEdit, whatIsOutsideIsCoveredOnce) {
    EXPECT_TRUE(FramingEdit::outside({}).empty());
    EXPECT_NEAR(area(FramingEdit::outside({.content = {0, 0, 0.5, 0.5}, .face = {0.5, 0.5, 0.5, 0.5}})), 0.5,
                1e-9);
    EXPECT_NEAR(area(FramingEdit::outside({.content = {0.2, 0.2, 0.5, 0.5}, .face = {0.4, 0.4, 0.2, 0.2}})),
                0.75, 1e-9);
}
