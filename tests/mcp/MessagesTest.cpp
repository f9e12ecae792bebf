#include "core/mcp/MCPServer.h"
#include "tests/Approved.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;

namespace {

/// A reply, with each tool or prompt that it lists on a line of its own.
std::string told(json reply) {
    std::string text;
    auto& result = reply["result"];
    for (const auto* name : {"tools", "prompts"}) {
        if (!result.is_object() || !result.contains(name)) continue;
        for (const auto& one : result[name]) text += "    " + one.dump() + "\n";
        result[name] = fmt::format("{} of them", result[name].size());
    }
    if (result.is_null()) reply.erase("result");
    return "  " + MCPServer::bytes(reply) + "\n" + text;
}

}

TEST(Messages, areAnsweredAsApproved) {
    std::string text;
    std::istringstream lines(contentsOf(std::filesystem::path(MURBO_TESTS) / "mcp/tours/messages.txt"));
    for (std::string line; std::getline(lines, line);) {
        text += line + "\n";
        const auto message = MCPServer::message(line);
        if (!message) {
            text += "  no message\n";
            continue;
        }
        if (MCPServer::isCall(*message))
            text += fmt::format("  a call of “{}” with {}\n", MCPServer::toolName(*message),
                                MCPServer::arguments(*message).dump());
        const auto reply = MCPServer::reply(*message, "0.1");
        text += reply ? told(*reply) : "  silence\n";
    }
    expectApproved("mcp/approved/messages.txt", text);
}
