#include "core/mcp/MCPServer.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;
using testing::HasSubstr;

namespace {

json reply(const std::string& message) {
    const auto answer = MCPServer::reply(json::parse(message), "0.1");
    return answer ? *answer : json("silence");
}

}

TEST(MCPMessage, isAnObjectOrNone) {
    for (const auto* body : {"[]", "", "7", "{", "{\"a\": \"\xff\"}", "{\"a\": 1e999}"})
        EXPECT_FALSE(MCPServer::message(body)) << body;
    EXPECT_FALSE(MCPServer::message("{\"a\": " + std::string(100'000, '[')));
    EXPECT_TRUE(MCPServer::message("{\"a\": [1]}"));
}

TEST(MCPMessage, aNotificationGetsSilence) {
    EXPECT_EQ(reply(R"({"jsonrpc": "2.0", "method": "notifications/initialized"})"), "silence");
    EXPECT_EQ(reply(R"({"id": null, "method": "ping"})"), "silence");
    EXPECT_EQ(reply(R"({"id": 1, "method": 5})"), "silence");
    EXPECT_FALSE(
        MCPServer::isCall(json::parse(R"({"method": "tools/call", "params": {"name": "overview"}})")));
}

TEST(MCPMessage, echoesIdsOfEveryKind) {
    for (const auto* id : {"0", "\"\"", "-1.5", "[1]", "{\"a\": 1}", "false", "\"3\""}) {
        const auto answer = reply(std::string(R"({"method": "ping", "id": )") + id + "}");
        EXPECT_EQ(answer["id"], json::parse(id));
        EXPECT_EQ(answer["result"], json::object());
    }
    EXPECT_EQ(reply(R"({"id": 0, "method": "resources/list"})")["error"],
              (json{{"code", -32601}, {"message", "Method not found"}}));
}

TEST(MCPMessage, welcomesInTheClientsOwnVersion) {
    EXPECT_EQ(reply(R"({"id": 1, "method": "initialize", "params": {"protocolVersion": "1999-01-01"}})")
                  ["result"]["protocolVersion"],
              "1999-01-01");
    const auto result =
        reply(R"({"id": 1, "method": "initialize", "params": {"protocolVersion": ""}})")["result"];
    EXPECT_EQ(result["protocolVersion"], "2025-06-18");
    EXPECT_EQ(result["serverInfo"], (json{{"name", "murbo"}, {"version", "0.1"}}));
    EXPECT_EQ(result["capabilities"], (json{{"tools", json::object()}, {"prompts", json::object()}}));
    EXPECT_THAT(result["instructions"].get<std::string>(), HasSubstr("Start with overview"));
}

TEST(MCPMessage, promptsAreTheKitsOfAIApps) {
    EXPECT_EQ(MCPServer::prompts().size(), 9u);
    EXPECT_EQ(MCPServer::prompts()[0]["arguments"][0]["name"], "picked");
    const auto text = [](const std::string& params) {
        return reply(R"({"id": 1, "method": "prompts/get", "params": )" + params + "}");
    };
    const auto prompt = text(R"({"name": "look", "arguments": {"picked": "V2"}})")["result"]["messages"][0];
    EXPECT_EQ(prompt["role"], "user");
    EXPECT_THAT(
        prompt["content"]["text"].get<std::string>(),
        testing::AllOf(testing::StartsWith("In Murbo, give V2 its look: "),
                       testing::EndsWith("help. Work from words; look at pictures only where words cannot "
                                         "tell you. Each change is one undo step for me.")));
    EXPECT_THAT(text(R"({"name": "sound"})")["result"]["messages"][0]["content"]["text"].get<std::string>(),
                HasSubstr("give what I have picked its sound"));
    EXPECT_EQ(text(R"({"name": "transcribe"})")["error"]["code"], -32602);
}

TEST(MCPMessage, aCallWithNobodyThereSaysSo) {
    const auto call = json::parse(R"({"id": 0, "method": "tools/call", "params": {"name": "overview"}})");
    EXPECT_TRUE(MCPServer::isCall(call));
    EXPECT_EQ(MCPServer::toolName(call), "overview");
    EXPECT_EQ(MCPServer::arguments(call), json::object());
    EXPECT_EQ(MCPServer::arguments({{"params", {{"arguments", {{"clip", "C01"}}}}}}),
              (json{{"clip", "C01"}}));
    const auto answer = reply(R"({"id": 0, "method": "tools/call"})");
    EXPECT_EQ(answer["result"]["isError"], true);
    EXPECT_EQ(answer["result"]["content"][0]["text"], MCPServer::closed);
}
