#include "app/mcp/bridge/ClaudeSetup.h"
#include "platform/base/Files.h"
#include "tests/Environment.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::HasSubstr;

namespace {

class ClaudeSetupTest : public testing::Test {
protected:
    void put(const char* text) {
        Files::createFolder(ClaudeSetup::file().parent_path());
        Files::writeWhole(ClaudeSetup::file(), text);
    }
    static std::string text(const std::filesystem::path& file) { return Files::readWhole(file, 1 << 20); }

    TemporaryFolder folder;
    Environment place{"XDG_CONFIG_HOME", (folder / "").string()};
};

}

TEST_F(ClaudeSetupTest, makesTheFileWhereThereIsNone) {
    EXPECT_EQ(ClaudeSetup::desktop().kind, ClaudeSetup::State::Kind::missing);
    EXPECT_TRUE(ClaudeSetup::addToDesktop().backup.empty());
    EXPECT_EQ(ClaudeSetup::desktop().kind, ClaudeSetup::State::Kind::ours);
    EXPECT_THAT(text(ClaudeSetup::file()),
                HasSubstr("\"command\": \"" + ClaudeSetup::command().string() + "\""));
}

TEST_F(ClaudeSetupTest, keepsWhatElseStandsThere) {
    const auto old = "/old/" + ClaudeSetup::command().filename().string();
    const auto before =
        R"({"z": 1, "mcpServers": {"other": {"command": "/a/b"}, "murbo": {"command": ")" + old + "\"}}}";
    put(before.c_str());
    EXPECT_EQ(ClaudeSetup::desktop().kind, ClaudeSetup::State::Kind::other);
    EXPECT_EQ(ClaudeSetup::desktop().path, old);
    const auto written = ClaudeSetup::addToDesktop();
    EXPECT_EQ(text(written.backup), before);
    EXPECT_THAT(text(written.file),
                testing::StartsWith("{\n  \"z\": 1,\n  \"mcpServers\": {\n    \"other\": {\n"));
    EXPECT_THAT(text(written.file), HasSubstr("\"/a/b\""));
}

TEST_F(ClaudeSetupTest, leavesAFileAloneThatItCannotRead) {
    for (const auto* bad : {"not json", "[]", R"({"mcpServers": []})"}) {
        put(bad);
        EXPECT_EQ(problemOf([] { ClaudeSetup::addToDesktop(); }),
                  "Claude Desktop's config could not be read, so it was left as it is.");
        EXPECT_EQ(text(ClaudeSetup::file()), bad);
    }
}
