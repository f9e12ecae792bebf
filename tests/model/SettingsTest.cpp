#include "core/model/Settings.h"
#include "platform/store/SettingsStore.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Settings, fallBackWhereTheyAreMissingOrUnfit) {
    // The standard store finds its place once, so all is asked in one test.
    const TemporaryFolder folder;
    setenv("XDG_CONFIG_HOME", folder.path.c_str(), 1);
    auto& store = SettingsStore::standard();
    const auto light = [] { return Settings::model(Settings::ModelClass::light); };
    EXPECT_EQ(light(), "anthropic/claude-haiku-5.5");
    EXPECT_EQ(Settings::model(Settings::ModelClass::judgement), "anthropic/claude-sonnet-5.5");
    EXPECT_EQ(Settings::transcriptionModel(), "elevenlabs/scribe-v2");
    EXPECT_EQ(Settings::language(), "th");
    store.set("lightModel", "  ");
    store.set("judgementModel", " own/model ");
    store.set("punchZoom", 1.0);
    store.set("quietLeast", "two");
    EXPECT_EQ(light(), "anthropic/claude-haiku-5.5");
    EXPECT_EQ(Settings::model(Settings::ModelClass::judgement), "own/model");
    EXPECT_EQ(Settings::punchZoom(), 1.3);
    EXPECT_EQ(Settings::quietLeast(), 2);
    store.set("punchZoom", 1.5);
    EXPECT_EQ(Settings::punchZoom(), 1.5);
    EXPECT_TRUE(std::filesystem::exists(folder / "murbo/settings.json"));
    unsetenv("XDG_CONFIG_HOME");
}

TEST(Settings, nameLanguagesInWords) {
    const std::pair<const char*, const char*> names[] = {
        {"th", "Thai"}, {"en", "English"}, {"yue", "Cantonese"},  {"zh-TW", "Chinese (Taiwan)"},
        {"qq", "qq"},   {"", ""},          {"th/../x", "th/../x"}};
    for (const auto& [code, name] : names) EXPECT_EQ(Settings::languageName(code), name);
}
