#include "app/desktop/drawn/FootagePictures.h"
#include "app/desktop/drawn/ListPicture.h"
#include "core/intake/samples/Loudness.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

DrawList threeThings() {
    DrawList list;
    list.fill({0, 0, 10, 20}, Qt::red);
    list.fill({5, 0, 10, 20}, QColor(0, 0, 255, 128));
    list.items.emplace_back(DrawList::Label{{20, 0, 60, 20}, "word", Qt::white});
    return list;
}

int lit(const QImage& picture, const QRect& within) {
    int count = 0;
    for (int y = within.top(); y <= within.bottom(); ++y)
        for (int x = within.left(); x <= within.right(); ++x) count += qGreen(picture.pixel(x, y)) > 128;
    return count;
}

}

TEST(ListPicture, liesBackToFrontOnItsGround) {
    for (const int ratio : {1, 2}) {
        ListPicture shown;
        ASSERT_TRUE(shown.paint(threeThings(), {{100, 20}, double(ratio), Qt::black}, nullptr));
        const auto& picture = shown.picture();
        ASSERT_EQ(picture.size(), QSize(100, 20) * ratio);
        EXPECT_EQ(picture.pixelColor(2 * ratio, 5), Qt::red);
        EXPECT_NEAR(picture.pixelColor(8 * ratio, 5).blue(), 128, 1);
        EXPECT_EQ(picture.pixelColor(16 * ratio, 5), Qt::black);
        EXPECT_GT(lit(picture, {20 * ratio, 0, 40 * ratio, 20 * ratio}), 10);
        EXPECT_EQ(lit(picture, {82 * ratio, 0, 10 * ratio, 20 * ratio}), 0);
    }
}

TEST(ListPicture, isPaintedAnewOnlyWhereItDiffers) {
    ListPicture shown;
    const ListPicture::PictureGround ground{{100, 20}, 1, Qt::black};
    EXPECT_TRUE(shown.paint(threeThings(), ground, nullptr));
    const auto before = shown.picture();
    EXPECT_FALSE(shown.paint(threeThings(), ground, nullptr));
    auto moved = threeThings();
    moved.moveBy(3, 0);
    EXPECT_TRUE(shown.paint(moved, ground, nullptr));
    EXPECT_EQ(before.pixelColor(2, 5), Qt::red) << "what is on the screen is not painted over";
    EXPECT_EQ(shown.picture().pixelColor(2, 5), Qt::black);
    EXPECT_TRUE(shown.paint(moved, {{50, 20}, 1, Qt::black}, nullptr));
    EXPECT_EQ(shown.picture().width(), 50);
}

TEST(ListPicture, asksAgainForWhatIsNotAtHandYet) {
    Loudness loudness;
    const Loudness* known = nullptr;
    FootagePictures pictures([](const UUID&) { return nullptr; }, [&](const UUID&) { return known; });
    DrawList list;
    list.items.emplace_back(DrawList::Wave{{0, 0, 100, 20}, {}, 0, 1, Qt::white});
    ListPicture shown;
    const ListPicture::PictureGround ground{{100, 20}, 1, Qt::black};
    EXPECT_TRUE(shown.paint(list, ground, &pictures));
    EXPECT_EQ(lit(shown.picture(), {0, 0, 100, 20}), 0);
    loudness.levels.assign(10, 255);
    known = &loudness;
    EXPECT_TRUE(shown.paint(list, ground, &pictures));
    EXPECT_GT(lit(shown.picture(), {0, 0, 100, 20}), 1900);
    EXPECT_FALSE(shown.paint(list, ground, &pictures));
}
