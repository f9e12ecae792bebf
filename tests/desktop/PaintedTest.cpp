#include "app/desktop/drawn/Painted.h"
#include "core/intake/samples/Loudness.h"

#include <QFontInfo>
#include <QPainter>
#include <QPainterPath>
#include <functional>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Painted, aBitmapsPixelsAreShared) {
    Bitmap bitmap(3, 2);
    bitmap.row(1)[4] = 200; // blue of the second pixel
    bitmap.row(1)[7] = 255;
    const auto image = Painted::image(bitmap);
    EXPECT_EQ(image.size(), QSize(3, 2));
    EXPECT_EQ(image.pixelColor(1, 1), QColor(0, 0, 200));
    EXPECT_EQ(image.constBits(), bitmap.row(0));
}

TEST(Painted, aPlaceIsFilledByThePicturesMiddle) {
    EXPECT_EQ(Painted::filling({100, 40}, 20, 20), QRectF(30, 0, 40, 40));
    EXPECT_EQ(Painted::filling({100, 40}, 50, 10), QRectF(0, 10, 100, 20));
}

TEST(Painted, aWaveIsAsHighAsItIsLoud) {
    Loudness loudness;
    loudness.levels = {255, 255, 255, 255, 255, 0, 0, 0, 0, 0};
    const auto picture = Painted::wave({{0, 0, 100, 20}, {}, 0, 1, Qt::white}, loudness, 2);
    EXPECT_EQ(picture.size(), QSize(200, 40));
    const auto filled = [&](int x) {
        int count = 0;
        for (int y = 0; y < picture.height(); ++y) count += qAlpha(picture.pixel(x, y)) > 0;
        return count;
    };
    EXPECT_EQ(filled(20), 40);
    EXPECT_EQ(filled(180), 1) << "silence is a line";
}

TEST(Painted, stripesMeetWhereTheyAreParted) {
    for (const double ratio : {1.0, 1.25, 2.0}) {
        const auto picture = Painted::stripes(20, Qt::white, ratio);
        const int step = static_cast<int>(DrawList::stripeStep * ratio);
        ASSERT_EQ(picture.size(), (QSizeF(256, 20) * ratio).toSize());
        int seam = 0, upright = 0;
        for (int x = 0; x < 4 * step; ++x) {
            const int here = qAlpha(picture.pixel(x, 10));
            seam = std::max(seam, std::abs(here - qAlpha(picture.pixel(x + 3 * step, 10))));
            upright = std::max(upright, std::abs(here - qAlpha(picture.pixel(x, 13))));
        }
        EXPECT_LE(seam, 16) << "at " << ratio;
        EXPECT_GT(upright, 100) << "they slant";
        std::set<int> lit;
        for (int x = 0; x < step; ++x) lit.insert(qAlpha(picture.pixel(x, 10)) > 200);
        EXPECT_EQ(lit.size(), 2U) << "what lies beneath is seen between them";
    }
}

TEST(Painted, lettersOfOtherScriptsAreNoBolderThanTheirOutlines) {
    QFont face("Noto Sans CJK JP");
    face.setPixelSize(14);
    if (QFontInfo(face).family() != face.family()) GTEST_SKIP() << "the face is not installed";
    const auto ink = [](const std::function<void(QPainter&)>& draw) {
        QImage page(200, 30, QImage::Format_Grayscale8);
        page.fill(Qt::black);
        QPainter painter(&page);
        painter.setRenderHint(QPainter::Antialiasing);
        draw(painter);
        painter.end();
        double sum = 0;
        for (int y = 0; y < page.height(); ++y)
            for (int x = 0; x < page.width(); ++x) sum += page.scanLine(y)[x];
        return sum;
    };
    const auto words = QString::fromUtf8("日本語の字幕");
    const double drawn = ink([&](QPainter& painter) {
        painter.setFont(face);
        painter.setPen(Qt::white);
        painter.drawText(QPointF(4, 20), words);
    });
    const double outlined = ink([&](QPainter& painter) {
        QPainterPath path;
        auto large = face; // an outline so large is drawn as the face has it
        large.setPixelSize(280);
        path.addText(0, 0, large, words);
        painter.translate(4, 20);
        painter.scale(0.05, 0.05);
        painter.fillPath(path, Qt::white);
    });
    EXPECT_LT(drawn / outlined, 1.35) << "smoothed for reading, not set bold";
}
