#include "app/desktop/settings/CaptionFonts.h"
#include "tests/Environment.h"
#include "tests/TemporaryFolder.h"

#include <QImage>

#include <gtest/gtest.h>

using namespace murbo;

TEST(CaptionFonts, anotherSettingTouchesNone) {
    const TemporaryFolder folder;
    const Environment config("XDG_CONFIG_HOME", folder.path);
    SettingsSheet settings;
    const CaptionFonts fonts(settings);
    settings.setText("captionFonts", "Nunito");
    ASSERT_EQ(fonts.rows().size(), 1);
    EXPECT_TRUE(fonts.rows()[0].toMap()["picture"].value<QImage>().isNull()) << "nobody looks";
    int changes = 0;
    QObject::connect(&fonts, &CaptionFonts::changed, [&] { ++changes; });
    settings.setNumber("clipFilmstrip", 50);
    EXPECT_EQ(changes, 0);
}
