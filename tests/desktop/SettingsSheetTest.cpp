#include "app/desktop/settings/SettingsSheet.h"
#include "platform/base/Files.h"
#include "platform/store/SettingsStore.h"

#include <filesystem>

#include <gtest/gtest.h>

using namespace murbo;

TEST(SettingsSheet, aChangeThatCannotBeKeptIsSaidUntilOneIsKept) {
    namespace fs = std::filesystem;
    const auto folder = fs::path(std::getenv("XDG_CONFIG_HOME")) / "murbo";
    const auto aside = folder.parent_path() / "aside";
    SettingsSheet sheet;
    sheet.setNumber("snapReach", 9);
    fs::rename(folder, aside);
    Files::writeWhole(folder, "no folder");
    sheet.setNumber("snapReach", 11);
    EXPECT_NE(sheet.problem(), "");
    EXPECT_FALSE(sheet.bind("play", "p"));
    EXPECT_EQ(sheet.moved(), "");
    fs::remove(folder);
    fs::rename(aside, folder);
    EXPECT_EQ(sheet.number("snapReach"), 9);
    sheet.setNumber("snapReach", 12);
    EXPECT_EQ(sheet.problem(), "");
    sheet.useStandardKeys();
    SettingsStore::standard().remove("snapReach");
}
