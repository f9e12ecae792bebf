#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"
#include "tests/TemporaryFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

std::string key(int process, int round) {
    return fmt::format("p{}.{}", process, round);
}

class Settings : public testing::Test {
protected:
    TemporaryFolder folder;
    static constexpr const char* name = "made/when/needed/settings.json";
    const fs::path file = folder / name;
    SettingsStore store{file};
};

}

TEST_F(Settings, areReadAsTheyWereSetByAnotherStoreToo) {
    EXPECT_EQ(store.text("language"), std::nullopt);
    const std::map<std::string, std::string> keys{{"cut", "⌘B"}, {"play", " "}};
    store.set("language", "en");
    store.set("snapReach", 8.5);
    store.set("skimming", false);
    store.set("prices", Data{std::string("\0\xFF", 2)});
    store.set("openProjects", std::vector<std::string>{"/a b", "/ü"});
    store.set("keys", keys);
    const SettingsStore other(file);
    EXPECT_EQ(other.text("language"), "en");
    EXPECT_EQ(other.number("snapReach"), 8.5);
    EXPECT_EQ(other.boolean("skimming"), false);
    EXPECT_EQ(other.data("prices"), (Data{std::string("\0\xFF", 2)}));
    EXPECT_EQ(other.texts("openProjects"), (std::vector<std::string>{"/a b", "/ü"}));
    EXPECT_EQ(other.textMap("keys"), keys);
    store.remove("keys");
    store.set("language", "th");
    EXPECT_EQ(other.textMap("keys"), std::nullopt);
    EXPECT_EQ(other.text("language"), "th") << "an older state may not be kept";
    EXPECT_EQ(fs::status(file.parent_path()).permissions(), fs::perms::owner_all)
        << "others' eyes are kept off";
    fs::remove(file);
    EXPECT_EQ(other.text("language"), std::nullopt);
}

TEST_F(Settings, areThoseOfTheFileThatStandsThereNow) {
    store.set("language", "th");
    ASSERT_EQ(store.text("language"), "th");
    auto text = contentsOf(file);
    text.replace(text.find("th"), 2, "en");
    const auto time = fs::last_write_time(file);
    fs::rename(folder.file("backup", text), file); // as a backup brings one back: as long, as old
    fs::last_write_time(file, time);
    EXPECT_EQ(store.text("language"), "en");
    fs::last_write_time(file, time + std::chrono::seconds(1));
    EXPECT_EQ(store.text("language"), "en");
    text.replace(text.find("en"), 2, "fr");
    std::ofstream(file, std::ios::in) << text; // in place
    fs::last_write_time(file, time + std::chrono::nanoseconds(5000));
    EXPECT_EQ(store.text("language"), "fr");
    text.replace(text.find("fr"), 2, "ja");
    std::ofstream(file, std::ios::in) << text; // within a tick of the clock
    fs::last_write_time(file, time + std::chrono::nanoseconds(5000));
    store.set("fonts", "Noto");
    EXPECT_EQ(store.text("language"), "ja") << "it is not written over";
}

TEST_F(Settings, standWhereTheSystemSaysOrInTheHome) {
    for (const auto& [configured, place] : {std::pair{folder.path / "set", "set/murbo/settings.json"},
                                            {fs::path("relative"), ".config/murbo/settings.json"},
                                            {fs::path(), ".config/murbo/settings.json"}}) {
        fs::remove_all(folder.path / fs::path(place).parent_path());
        if (fork() == 0) { // each process finds its own once
            setenv("XDG_CONFIG_HOME", configured.c_str(), 1);
            setenv("HOME", folder.path.c_str(), 1);
            SettingsStore::standard().set("language", "th");
            _exit(0);
        }
        wait(nullptr);
        EXPECT_TRUE(fs::exists(folder / place)) << configured;
    }
}

TEST_F(Settings, ofAnotherKindAreNotSet) {
    folder.file(name,
                R"({"text": 5, "number": "5", "boolean": 1, "data": "no base64!", "texts": ["a", 1],
                    "map": {"a": []}, "null": null, "huge": 1e308, "integer": 3})");
    EXPECT_EQ(store.text("text"), std::nullopt);
    EXPECT_EQ(store.number("number"), std::nullopt);
    EXPECT_EQ(store.boolean("boolean"), std::nullopt);
    EXPECT_EQ(store.data("data"), std::nullopt);
    EXPECT_EQ(store.texts("texts"), std::nullopt);
    EXPECT_EQ(store.textMap("map"), std::nullopt);
    EXPECT_EQ(store.text("null"), std::nullopt);
    EXPECT_EQ(store.number("integer"), 3);
    EXPECT_EQ(store.number("huge"), 1e308);
    EXPECT_EQ(store.texts("map"), std::nullopt);
    EXPECT_EQ(store.textMap("texts"), std::nullopt);
    EXPECT_EQ(store.number("null"), std::nullopt);
}

TEST_F(Settings, ThatAreGarbageAreNoneAndAreKeptAsideBeforeNewOnesAreWritten) {
    for (const std::string& garbage :
         {std::string("not json"), std::string("{\"language\": \"en\""), std::string("[1]"),
          std::string("\xFF\xFE\0x", 4), std::string(),
          "{\"a\":" + std::string(100'000, '[') + std::string(100'000, ']') + "}"}) {
        folder.file(name, garbage);
        EXPECT_EQ(store.text("language"), std::nullopt);
        store.set("language", "de");
        EXPECT_EQ(store.text("language"), "de");
        EXPECT_EQ(contentsOf(file.string() + ".damaged"), garbage);
    }
}

TEST_F(Settings, keepWhatTheyDoNotKnowAndTheLinkTheyStandBehind) {
    const auto real =
        folder.file("dotfiles/murbo.json", R"({"later": {"deep": [1, null]}, "language": "en"})");
    fs::create_directories(file.parent_path());
    fs::create_symlink(real, file);
    store.set("language", "th");
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(
        contentsOf(real),
        "{\n  \"language\": \"th\",\n  \"later\": {\n    \"deep\": [\n      1,\n      null\n    ]\n  }\n}\n");
}

TEST_F(Settings, areSafeWithSeveralProcessesAtOnce) {
    constexpr int processes = 4, rounds = 25;
    for (int process = 0; process < processes; ++process)
        if (fork() == 0) {
            for (int round = 0; round < rounds; ++round) store.set(key(process, round), double(round));
            _exit(0);
        }
    int failures = 0;
    for (int process = 0, status = 0; process < processes; ++process)
        if (wait(&status) < 0 || status != 0) ++failures;
    ASSERT_EQ(failures, 0);
    for (int process = 0; process < processes; ++process)
        for (int round = 0; round < rounds; ++round) EXPECT_EQ(store.number(key(process, round)), round);
}

TEST_F(Settings, ThatCannotBeWrittenSaySo) {
    folder.file("made", "a file where a folder is needed");
    EXPECT_THROW(store.set("language", "th"), Problem);
    EXPECT_EQ(store.text("language"), std::nullopt);
}
