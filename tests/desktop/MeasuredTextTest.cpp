#include "app/desktop/drawn/MeasuredText.h"

#include <QFontMetricsF>

#include <gtest/gtest.h>

using namespace murbo;

TEST(MeasuredText, isCutBetweenLettersAsPeopleSeeThem) {
    const QString thai = "ที่นี่กำลังดี";
    const MeasuredText measured(thai, false);
    for (double width = 0; width < 90; width += 3) {
        const auto cut = measured.fitting(width, false);
        ASSERT_TRUE(thai.startsWith(cut));
        if (cut.size() < thai.size()) {
            EXPECT_FALSE(thai[cut.size()].isMark()) << "a tone is not torn off its letter";
        }
    }
    EXPECT_EQ(MeasuredText("word", false).fitting(500, false), "word");
    EXPECT_EQ(MeasuredText("", true).fitting(10, true), "");
}

TEST(MeasuredText, neverIsWiderThanItsPlaceAndLosesNoLetterThatFits) {
    for (const QString words :
         {"a rather long text", "สวัสดีครับ fell off", "שלום and a cliff", "👩‍👩‍👧 emoji"})
        for (const bool bold : {false, true}) {
            const MeasuredText measured(words, bold);
            const QFontMetricsF metrics(MeasuredText::font(bold));
            EXPECT_NEAR(measured.width(), metrics.horizontalAdvance(words), 1) << words.toStdString();
            for (double width = 12; width < 140; width += 7) {
                const auto fits = measured.fitting(width, true);
                EXPECT_LE(metrics.horizontalAdvance(fits), width + 1) << words.toStdString();
                const auto elided = metrics.elidedText(words, Qt::ElideRight, width);
                EXPECT_NEAR(static_cast<double>(fits.size()), static_cast<double>(elided.size()), 1)
                    << fits.toStdString() << " for " << elided.toStdString();
            }
        }
}
