#include "app/editor/playback/PreviewVolume.h"
#include "platform/store/SettingsStore.h"
#include "tests/TemporaryFolder.h"

#include <limits>

#include <gtest/gtest.h>

using namespace murbo;

TEST(PreviewVolume, isKeptAndNotifiesOfChangesAlone) {
    const TemporaryFolder folder;
    SettingsStore settings(folder / "settings.json");
    std::vector<double> heard;
    PreviewVolume volume(settings);
    EXPECT_EQ(volume.volume(), 1);
    QObject::connect(&volume, &PreviewVolume::changed, [&] { heard.push_back(volume.volume()); });
    volume.setLevel(0.4);
    volume.setLevel(0.4);
    volume.setLevel(std::numeric_limits<double>::quiet_NaN());
    volume.setMuted(true);
    EXPECT_EQ(heard, (std::vector{0.4, 0.0}));
    const PreviewVolume again(settings);
    EXPECT_EQ(again.level(), 0.4);
    EXPECT_TRUE(again.muted());
    volume.setLevel(7);
    EXPECT_EQ(volume.level(), 1);
}

TEST(PreviewVolume, whatIsStoredIsBroughtWithinItsRange) {
    const TemporaryFolder folder;
    SettingsStore settings(folder / "settings.json");
    for (const auto& [stored, level] : {std::pair{3.0, 1.0}, {-1.0, 0.0}, {0.25, 0.25}}) {
        settings.set("previewVolume", stored);
        EXPECT_EQ(PreviewVolume(settings).volume(), level) << stored;
    }
    PreviewVolume volume(settings);
    volume.setLevel(7);
    EXPECT_EQ(settings.number("previewVolume"), 1) << "what is kept is what is heard";
    volume.setMuted(true);
    volume.setMuted(false);
    EXPECT_EQ(volume.volume(), 1);
    EXPECT_FALSE(PreviewVolume(settings).muted());
}

TEST(PreviewVolume, holdsForTheSessionWhereItCannotBeKept) {
    const TemporaryFolder folder;
    const auto blocked = folder.file("blocked");
    SettingsStore settings(blocked / "settings.json");
    PreviewVolume volume(settings);
    volume.setLevel(0.5);
    EXPECT_EQ(volume.volume(), 0.5);
}
