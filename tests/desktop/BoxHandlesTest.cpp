#include "app/desktop/viewer/BoxHandles.h"

#include <gtest/gtest.h>

using namespace murbo;
using BoxHandles::BoxHandle;

TEST(BoxHandles, cornersGoBeforeEdgesAndTheseBeforeTheBody) {
    const QRectF box(100, 100, 200, 100);
    const QSizeF reach(8, 8);
    for (const auto handle : BoxHandles::allEdges)
        EXPECT_EQ(BoxHandles::at(box, BoxHandles::place(box, handle), reach), handle)
            << static_cast<int>(handle);
    EXPECT_EQ(BoxHandles::at(box, {200, 150}, reach), BoxHandle::body);
    EXPECT_EQ(BoxHandles::at(box, {93, 93}, reach), BoxHandle::topLeft) << "a little outside counts";
    EXPECT_EQ(BoxHandles::at(box, {91, 150}, reach), BoxHandle::none);
    EXPECT_EQ(BoxHandles::at({0, 0, 9, 9}, {4.5, 4.5}, reach), BoxHandle::body)
        << "the smallest box can still be moved";
}

TEST(BoxHandles, pullsStayInBoundsAndNeverTurnABoxOver) {
    const QRectF bounds(0, 0, 100, 100);
    const QRectF box(20, 30, 40, 20);
    for (const auto handle : BoxHandles::allEdges)
        for (const QPointF by : {QPointF(500, 500), {-500, -500}, {500, -500}, {3, -7}}) {
            const auto now = BoxHandles::pulled(box, handle, by, bounds, {5, 5});
            EXPECT_TRUE(bounds.contains(now)) << static_cast<int>(handle);
            EXPECT_GE(now.width(), 5 - 1e-9);
            EXPECT_GE(now.height(), 5 - 1e-9);
        }
    EXPECT_EQ(BoxHandles::pulled(box, BoxHandle::body, {500, -500}, bounds, {5, 5}), QRectF(60, 0, 40, 20));
    EXPECT_EQ(BoxHandles::pulled(box, BoxHandle::left, {-10, 9}, bounds, {5, 5}), QRectF(10, 30, 50, 20))
        << "an edge goes its own way alone";
}
