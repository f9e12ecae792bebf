#include "core/ai/PaidRequest.h"
#include "core/ai/Spending.h"
#include "platform/base/Cancelled.h"
#include "platform/store/SettingsStore.h"
#include "tests/ScriptedModel.h"
#include "tests/ai/OwnSettings.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

struct Paying {
    Paying() { ownSettings(); }
    ~Paying() { std::filesystem::remove_all(ownSettings() / "state/murbo/spent"); }

    OpenRouter::Answer send(const std::stop_token& stop = {}) const {
        const PaidRequest request{
            "Look", {.messages = {{Ask::Message::Role::user, "Hello"}}}, "Hello", "a/model", folder.path};
        return request.send("sk-or-v1-0123456789", stop);
    }
    Activity last() const { return Activity::read(folder.path).back(); }

    TemporaryFolder folder;
    ScriptedModel model;
    Environment address{"MURBO_OPENROUTER", model.base()};
};

}

TEST(PaidRequest, isLoggedWithWhatItCameTo) {
    Paying paying;
    const double before = Spending::today();
    const auto began = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    paying.model.says("{}", 0.25);
    EXPECT_EQ(paying.send().text, "{}");
    const auto entry = paying.last();
    EXPECT_EQ(entry.kind + entry.title + *entry.engine + *entry.request + *entry.reply + entry.state,
              "askLooka/modelHello{}done");
    EXPECT_EQ(entry.cost, 0.25);
    EXPECT_TRUE(entry.started >= began && entry.ended && *entry.ended >= entry.started);
    EXPECT_DOUBLE_EQ(Spending::today() - before, 0.25);
}

TEST(PaidRequest, logsWhyItFailed) {
    Paying paying;
    paying.model.sends(FakeServer::reply(429, R"({"error": {"message": "Slow down"}})"));
    EXPECT_THROW(paying.send(), Problem);
    EXPECT_EQ(paying.last().state + ": " + *paying.last().error,
              "failed: OpenRouter did not answer. Slow down");
    EXPECT_FALSE(paying.last().cost);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(paying.send(stop.get_token()), Cancelled);
    EXPECT_EQ(paying.last().state, "stopped");
}

TEST(PaidRequest, isNotSentPastTheLimitOfADay) {
    Paying paying;
    Spending::add(0.5);
    SettingsStore::standard().set("spendCap", 0.4);
    EXPECT_THROW(paying.send(), Problem);
    SettingsStore::standard().remove("spendCap");
    EXPECT_TRUE(paying.model.bodies().empty());
    EXPECT_EQ(paying.last().state, "failed");
}
