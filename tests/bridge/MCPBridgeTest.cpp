#include "app/mcp/bridge/MCPBridge.h"
#include "core/mcp/MCPServer.h"
#include "tests/FakeServer.h"

#include <array>
#include <atomic>
#include <chrono>
#include <cstring>
#include <thread>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <unistd.h>

using namespace murbo;
using nlohmann::json;

namespace {

/// The port of a server.
std::uint16_t portOf(const FakeServer& server) {
    return static_cast<std::uint16_t>(std::stoi(server.base.substr(server.base.rfind(':') + 1)));
}

/// What the bridge prints for these lines, from beginning to end. Where it is to answer first, its input ends
/// after that: it gives a call that is out only a moment more.
std::string printed(const std::string& lines, std::uint16_t port, bool answersFirst = false) {
    std::array<int, 2> in;
    std::array<int, 2> out;
    EXPECT_EQ(pipe(in.data()) + pipe(out.data()), 0);
    std::atomic<bool> mayEnd = !answersFirst;
    std::thread writing([&] {
        for (std::size_t at = 0; at < lines.size();)
            at += static_cast<std::size_t>(write(in[1], lines.data() + at, lines.size() - at));
        mayEnd.wait(false);
        close(in[1]);
    });
    std::thread bridging([&] {
        MCPBridge::run({in[0], out[1], port});
        close(in[0]);
        close(out[1]);
    });
    const auto allow = [&] {
        mayEnd = true;
        mayEnd.notify_one();
    };
    std::string text;
    std::array<char, 65536> bytes;
    for (ssize_t count; (count = read(out[0], bytes.data(), bytes.size())) > 0;) {
        text.append(bytes.data(), static_cast<std::size_t>(count));
        allow();
    }
    allow();
    writing.join();
    bridging.join();
    close(out[0]);
    return text;
}

constexpr auto call = "{\"id\": 7, \"method\": \"tools/call\", \"params\": {}}\n";

}

TEST(MCPBridge, answersByItselfWhatNeedsNoProgram) {
    const auto text =
        printed("{\"id\": 0, \"method\": \"ping\"}\nnonsense\n[]\n{\"method\": \"notifications/x\"}\n" +
                    std::string(call, std::strlen(call) - 1), // the last line may lack its end
                1);
    const auto end = text.find('\n');
    EXPECT_EQ(json::parse(text.substr(0, end)),
              (json{{"jsonrpc", "2.0"}, {"id", 0}, {"result", json::object()}}));
    const auto closed = json::parse(text.substr(end + 1));
    EXPECT_EQ(closed["id"], 7);
    EXPECT_EQ(closed["result"]["content"][0]["text"], MCPServer::closed);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
}

TEST(MCPBridge, carriesCallsThereAndBackOnOneLine) {
    const FakeServer server([](auto&) { return FakeServer::reply(200, "{\"id\": 7,\n\"result\": {}}"); });
    EXPECT_EQ(printed(call, portOf(server)), "{\"id\": 7, \"result\": {}}\n");
    const auto list = printed("{\"id\": 8, \"method\": \"tools/list\"}\n", portOf(server));
    EXPECT_NE(list.find("read_clips"), list.npos) << "the same with or without a program";
    const auto large = "{\"id\": 7, \"method\": \"tools/call\", \"params\": {\"x\": \"" +
                       std::string(4 << 20, 'y') + "\"}}\n";
    EXPECT_EQ(printed(large, portOf(server), true), "{\"id\": 7, \"result\": {}}\n");
}

TEST(MCPBridge, carriesCallsBesideOneAnother) {
    const FakeServer server([](const std::string& request) {
        const auto body = request.substr(request.find("\r\n\r\n") + 4);
        return FakeServer::reply(200, json{{"id", json::parse(body)["id"]}}.dump());
    });
    std::string calls;
    for (int id = 1; id <= 9; ++id)
        calls +=
            json{{"id", id}, {"method", "tools/call"}, {"params", std::string(20'000, 'x')}}.dump() + "\n";
    auto text = printed(calls, portOf(server), true);
    for (int id = 1; id <= 9; ++id) {
        const auto answer = json{{"id", id}}.dump() + "\n";
        const auto at = text.find(answer);
        ASSERT_NE(at, text.npos) << id;
        text.erase(at, answer.size());
    }
    EXPECT_EQ(text, "") << "each once";
}

TEST(MCPBridge, endsSoonAfterItsInputWhateverIsOut) {
    const FakeServer server([](auto&) { return ""; }); // never answers
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(printed(call, portOf(server)), "");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}
