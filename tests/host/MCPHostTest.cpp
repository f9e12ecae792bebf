#include "app/mcp/MCPHost.h"
#include "platform/store/SettingsStore.h"
#include "tests/TemporaryFolder.h"
#include "tests/host/HeldSession.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;
using testing::HasSubstr;

namespace {

class MCPHostTest : public testing::Test {
protected:
    MCPHostTest() { host.setSession(session); }

    /// Asks, and keeps what comes back.
    void ask(const char* tool, const json& arguments = json::object(), QObject* client = nullptr) {
        answers.clear();
        host.call(tool, arguments, client, [this](const json& result) {
            answers.push_back((result["isError"].get<bool>() ? "failed: " : "") +
                              result["content"][0]["text"].get<std::string>());
        });
    }
    std::string answer(const char* tool, const json& arguments = json::object()) {
        ask(tool, arguments);
        return answers.empty() ? "nothing yet" : answers.back();
    }
    void permit(const char* tool, MCPPermissions::Permission permission) {
        auto permissions = host.permissions();
        permissions.set(permission, *MCPTool::named(tool));
        host.setPermissions(permissions);
    }
    const std::string& title() const { return session->project().videos[0].title; }

    std::shared_ptr<HeldSession> session = std::make_shared<HeldSession>();
    MCPHost host{nullptr};
    std::vector<std::string> answers;
};

const json renaming{{"video", "V1"}, {"title", "Second"}};

}

TEST_F(MCPHostTest, theSameStepOfAnotherSessionIsNobodysToTakeBack) {
    answer("rename_video", renaming);
    session = std::make_shared<HeldSession>(*session); // as when the project is closed and opened again
    host.setSession(session);
    EXPECT_THAT(answer("undo_my_last"), HasSubstr("Nothing of yours to take back"));
    EXPECT_EQ(title(), "Second");
}

TEST_F(MCPHostTest, aChangeThatChangesNothingIsNobodysToTakeBack) {
    answer("rename_video", {{"video", "V1"}, {"title", "First"}});
    session->rename("Third");
    answer("rename_video", {{"video", "V1"}, {"title", "Third"}});
    EXPECT_THAT(answer("undo_my_last"), HasSubstr("your last call changed nothing"));
    EXPECT_EQ(title(), "Third");
}

TEST_F(MCPHostTest, whatIsAllowedStaysSo) {
    const TemporaryFolder folder;
    SettingsStore store(folder / "settings.json");
    permit("rename_video", MCPPermissions::Permission::off);
    MCPHost(&store).setPermissions(host.permissions());
    EXPECT_EQ(MCPHost(&store).permissions(), host.permissions());
}

TEST_F(MCPHostTest, anAppThatLeavesLeavesTheQuestionOfAnother) {
    permit("rename_video", MCPPermissions::Permission::ask);
    auto first = std::make_unique<QObject>();
    auto second = std::make_unique<QObject>();
    ask("rename_video", renaming, first.get());
    ask("rename_video", renaming, second.get());
    first.reset();
    ASSERT_TRUE(host.question());
    EXPECT_EQ(host.busy(), 1);
    second.reset();
    EXPECT_FALSE(host.question());
    EXPECT_EQ(answers, (std::vector<std::string>{"failed: The owner said no to Rename Video.",
                                                 "failed: The app left before the owner answered."}));
    EXPECT_EQ(host.busy(), 0);
    ask("rename_video", renaming);
    host.stop(); // nobody will answer any more
    EXPECT_FALSE(host.question());
    EXPECT_EQ(answers, std::vector<std::string>{"failed: The owner said no to Rename Video."});
    EXPECT_EQ(title(), "First");
}

TEST_F(MCPHostTest, takingBackMakesNothingElseKnown) {
    session->addVideo("Other", {});
    for (const auto* video : {"V1", "V2"}) answer("read_video", {{"video", video}});
    auto changed = session->project();
    changed.videos.edit()[1].title = "Owner's";
    session->commit("Rename", changed);
    answer("rename_video", renaming);
    EXPECT_EQ(answer("undo_my_last"), "Took back “Rename Video”.");
    EXPECT_EQ(answer("what_changed", {{"video", "V1"}}), "Nothing in V1 changed since you last read it.");
    EXPECT_THAT(answer("what_changed", {{"video", "V2"}}), HasSubstr("Title: “Other” → “Owner's”"));
}

TEST_F(MCPHostTest, aPortThatIsTakenIsAProblemUntilItIsFree) {
    int notified = 0;
    QObject::connect(&host, &MCPHost::problemChanged, [&] { ++notified; });
    auto other = std::make_unique<MCPHost>(nullptr);
    other->start(0);
    EXPECT_EQ(other->problem(), "");
    const auto port = other->port();
    host.start(port);
    EXPECT_EQ(host.problem(),
              "Port " + std::to_string(port) + " could not be opened. The bound address is already in use");
    other.reset();
    host.start(port);
    EXPECT_EQ(host.problem(), "");
    EXPECT_EQ(std::pair(host.port(), notified), std::pair(port, 2));
}

TEST(MCPActivity, keepsTheLastThreeHundred) {
    MCPActivity activity;
    for (int count = 0; count < 301; ++count) activity.add({.tool = std::to_string(count)});
    EXPECT_EQ(activity.entries().size(), 300u);
    EXPECT_EQ(activity.entries().front().tool, "1");
}

TEST(MCPActivity, tellsArgumentsInAFewWords) {
    const auto forty = std::string(40, 'x');
    EXPECT_EQ(
        MCPActivity::brief({{"video", "V2"}, {"cuts", {1, 2, 3}}, {"a", forty + "y"}, {"z", json::object()}}),
        "V2, a " + forty + "…, 3 cuts, z");
    EXPECT_EQ(MCPActivity::brief({{"query", "one\ntwo"}}), "query one two");
    EXPECT_EQ(MCPActivity::firstLines("\n a\n\nb\nc\nd"), " a\nb\nc");
}
