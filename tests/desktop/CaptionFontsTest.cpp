#include "app/desktop/settings/CaptionFonts.h"
#include "core/model/Settings.h"
#include "tests/desktop/WindowOfProject.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

QImage specimen(const CaptionFonts& fonts, int row) {
    return fonts.rows().value(row).toMap()["picture"].value<QImage>();
}

}

TEST(CaptionFonts, areKeptInTheirOrderEachOnce) {
    const TemporaryFolder folder;
    const Environment config("XDG_CONFIG_HOME", folder.path);
    SettingsSheet settings;
    CaptionFonts fonts(settings);
    settings.setText("captionFonts", "Nunito,, No Such Font , ");
    ASSERT_EQ(fonts.rows().size(), 2);
    EXPECT_TRUE(fonts.rows()[0].toMap()["installed"].toBool());
    EXPECT_FALSE(fonts.rows()[1].toMap()["installed"].toBool());
    EXPECT_TRUE(fonts.others().contains("Mitr"));
    EXPECT_FALSE(fonts.others().contains("Nunito"));

    for (const char* family : {"Mitr", "nunito", "One, Two", " "}) fonts.add(family);
    EXPECT_EQ(Settings::captionFonts(), "Nunito, No Such Font, Mitr");
    fonts.move(2, 0);
    for (const auto& [from, to] : {std::pair{0, 3}, {-1, 0}, {3, 0}, {0, -1}}) fonts.move(from, to);
    fonts.remove(2);
    fonts.remove(5);
    EXPECT_EQ(Settings::captionFonts(), "Mitr, Nunito");
    int changes = 0;
    QObject::connect(&fonts, &CaptionFonts::changed, [&] { ++changes; });
    settings.setNumber("clipFilmstrip", 50);
    EXPECT_EQ(changes, 0) << "another setting";
    EXPECT_TRUE(specimen(fonts, 0).isNull()) << "nobody looks";
    fonts.setWatched(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !fonts.isBusy(); }, 20000));
    EXPECT_FALSE(specimen(fonts, 0).isNull());
    EXPECT_NE(specimen(fonts, 0), specimen(fonts, 1));
    settings.setText("captionFonts", "");
    EXPECT_TRUE(fonts.rows().empty());
}

TEST(CaptionFonts, areOrderedByKeysAndByDragging) {
    MURBO_NEEDS_FFMPEG();
    WindowOfProject shown;
    ASSERT_TRUE(shown.opened);
    SettingsSheet().setText("captionFonts", "Nunito, Mitr, Quicksand");
    shown.project().setSheet("captionFonts");
    shown.settle();
    const auto* third = shown.named("Quicksand");
    const auto* first = shown.named("Nunito");
    ASSERT_TRUE(first && third);
    const auto at = [](const QQuickItem* item) { return item->mapToScene({5, 20}).toPoint(); };
    shown.carry(at(third), at(first), 5);
    EXPECT_EQ(Settings::captionFonts(), "Quicksand, Nunito, Mitr");
    shown.key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(Settings::captionFonts(), "Nunito, Quicksand, Mitr");
    shown.key(Qt::Key_Up);
    shown.key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(Settings::captionFonts(), "Nunito, Quicksand, Mitr") << "the first stays";
    shown.key(Qt::Key_Delete);
    EXPECT_EQ(Settings::captionFonts(), "Quicksand, Mitr");
    SettingsSheet().setText("captionFonts", "");
    EXPECT_EQ(Complaints::list(), "");
}
