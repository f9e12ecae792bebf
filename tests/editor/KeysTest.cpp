#include "app/editor/Keys.h"
#include "platform/base/Files.h"
#include "platform/store/SettingsStore.h"
#include "tests/TemporaryFolder.h"

#include <set>

#include <gtest/gtest.h>

using namespace murbo;

TEST(Keys, haveATitleAndAKeyOfTheirOwn) {
    std::set<std::string_view> keys, titles;
    for (std::size_t at = 0; at < rawTexts(Command{}).size(); ++at) {
        keys.insert(Keys::standardKey(Command(at)));
        titles.insert(Keys::title(Command(at)));
    }
    EXPECT_EQ(keys.size(), rawTexts(Command{}).size());
    EXPECT_EQ(titles.size(), keys.size());
}

TEST(Keys, swapWhereAnotherCommandHadTheKey) {
    const TemporaryFolder folder;
    SettingsStore settings(folder / "settings.json");
    Keys keys(settings);
    EXPECT_EQ(keys.bind(Command::markStart, "j"), Command::backward);
    EXPECT_EQ(keys.key(Command::backward), "i");
    EXPECT_EQ(keys.command("j"), Command::markStart);
    EXPECT_EQ(keys.bind(Command::blade, "q"), std::nullopt);
    EXPECT_EQ(keys.command("b"), std::nullopt);
    EXPECT_EQ(Keys(settings).key(Command::markStart), "j") << "kept in the settings";
    keys.useStandard();
    EXPECT_EQ(Keys(settings).command("b"), Command::blade);
}

TEST(Keys, stayWhereTheSettingsCannotBeWritten) {
    const TemporaryFolder folder;
    Files::writeWhole(folder / "file", "");
    SettingsStore settings(folder / "file/settings.json");
    Keys keys(settings);
    EXPECT_ANY_THROW(keys.bind(Command::markStart, "j"));
    EXPECT_EQ(keys.command("j"), Command::backward);
}

TEST(Keys, countAsTypedWhateverTheScript) {
    for (const auto& [typed, name] :
         {std::pair{"J", "j"}, {" ", "space"}, {"\x7F", "delete"}, {"ฟ", "ฟ"}, {"Ж", "ж"}})
        EXPECT_EQ(Keys::name(typed), name) << typed;
    for (const auto* unfit : {"", "\r", "\t", "\x1B", "ab", "\xFF"})
        EXPECT_EQ(Keys::name(unfit), std::nullopt) << unfit;
}
