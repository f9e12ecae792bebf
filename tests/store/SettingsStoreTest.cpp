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

TEST_F(Settings, changedWithinATickOfTheClockAreNotWrittenOver) {
    store.set("language", "th");
    ASSERT_EQ(store.text("language"), "th");
    auto text = contentsOf(file);
    text.replace(text.find("th"), 2, "en");
    const auto time = fs::last_write_time(file);
    std::ofstream(file, std::ios::in) << text; // in place, as long as before
    fs::last_write_time(file, time);
    store.set("fonts", "Noto");
    EXPECT_EQ(store.text("language"), "en");
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
