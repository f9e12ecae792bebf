#include "core/mcp/MCPServer.h"

#include "core/ai/Reply.h"
#include "core/ai/Toolkit.h"
#include "core/mcp/MCPTool.h"
#include "platform/base/Json.h"
#include "platform/base/RawText.h"

#include <algorithm>

#include <nlohmann/json.hpp>

namespace murbo::MCPServer {

namespace {

using nlohmann::json;
using Reply::member;

constexpr const char* standardProtocol = "2025-06-18";
constexpr int methodNotFound = -32601;
constexpr int invalidParams = -32602;

constexpr const char* instructions =
    "Murbo makes videos from footage. Start with overview: a line for every clip. read_clips gives the lines "
    "of "
    "the clips you need, each tagged (C14.03); cut, describe and fix by those tags, never by times. Pictures "
    "cost "
    "far more than words: look only when words cannot answer; read_loudness finds loud and quiet places by "
    "line. "
    "list_bookmarks is where the owner wants you to look. Before changing a video you read a while ago, "
    "what_changed says what the owner did since, so you keep it. Every change is one undo step for the "
    "owner.";

std::string textOf(const json& object, const char* name, std::string_view otherwise) {
    const auto& value = member(object, name);
    const bool says = value.is_string() && !value.get_ref<const std::string&>().empty();
    return says ? value.get<std::string>() : std::string(otherwise);
}

json error(int code, const char* words, const json& id) {
    return {{"jsonrpc", "2.0"}, {"id", id}, {"error", {{"code", code}, {"message", words}}}};
}

json welcome(const json& params, std::string_view version) {
    return {{"protocolVersion", textOf(params, "protocolVersion", standardProtocol)},
            {"capabilities", {{"tools", json::object()}, {"prompts", json::object()}}},
            {"serverInfo", {{"name", "murbo"}, {"version", version}}},
            {"instructions", instructions}};
}

json tools() {
    auto list = json::array();
    for (const auto& tool : MCPTool::all()) list.push_back(tool.listed());
    return {{"tools", std::move(list)}};
}

std::string written(std::string_view request, const std::string& picked) {
    constexpr std::string_view slot = "{picked}";
    std::string text(request);
    for (auto at = text.find(slot); at != text.npos; at = text.find(slot, at + picked.size()))
        text.replace(at, slot.size(), picked);
    return "In Murbo, " + text +
           " Work from words; look at pictures only where words cannot tell you. Each change is one undo "
           "step for "
           "me.";
}

json prompt(const json& message) {
    const auto& params = member(message, "params");
    const auto name = textOf(params, "name", "");
    for (const auto& kit : Toolkit::kits()) {
        if (!kit.overMCP || rawText(kit.id) != name) continue;
        const auto text =
            written(kit.request, textOf(member(params, "arguments"), "picked", "what I have picked"));
        return result({{"description", kit.does},
                       {"messages",
                        json::array({{{"role", "user"}, {"content", {{"type", "text"}, {"text", text}}}}})}},
                      message);
    }
    return error(invalidParams, "No such prompt", member(message, "id"));
}

}

const char* const closed =
    "Murbo is not answering. Ask the owner to open Murbo with a project, and to switch on Let Claude Connect "
    "in "
    "Settings ▸ MCP.";

std::optional<json> message(std::string_view body) try {
    const auto parsed = Json::parse(body);
    return parsed.value().is_object() ? std::optional(parsed.value()) : std::nullopt;
} catch (const Problem&) {
    return std::nullopt;
}

bool isCall(const json& message) {
    return member(message, "method") == "tools/call" && !member(message, "id").is_null();
}

std::string toolName(const json& call) {
    return textOf(member(call, "params"), "name", "");
}

json arguments(const json& call) {
    const auto& given = member(member(call, "params"), "arguments");
    return given.is_object() ? given : json::object();
}

std::optional<json> reply(const json& message, std::string_view version) {
    const auto& id = member(message, "id");
    const auto& method = member(message, "method");
    if (id.is_null() || !method.is_string()) return std::nullopt;
    const auto& params = member(message, "params");
    if (method == "initialize") return result(welcome(params, version), message);
    if (method == "ping") return result(json::object(), message);
    if (method == "tools/list") return result(tools(), message);
    if (method == "prompts/list") return result({{"prompts", prompts()}}, message);
    if (method == "prompts/get") return prompt(message);
    if (method == "tools/call") return result(text(closed, true), message);
    return error(methodNotFound, "Method not found", id);
}

json result(json object, const json& message) {
    return {{"jsonrpc", "2.0"}, {"id", member(message, "id")}, {"result", std::move(object)}};
}

json text(std::string_view text, bool failed) {
    return {{"content", json::array({{{"type", "text"}, {"text", text}}})}, {"isError", failed}};
}

json prompts() {
    auto list = json::array();
    for (const auto& kit : Toolkit::kits())
        if (kit.overMCP)
            list.push_back(
                {{"name", rawText(kit.id)},
                 {"description", kit.does},
                 {"arguments", json::array({{{"name", "picked"},
                                             {"description",
                                              "What to work on: clip tags (C03, C05) or a video's tag (V2)"},
                                             {"required", false}}})}});
    return list;
}

std::string bytes(const json& message) {
    return message.dump(-1, ' ', false, json::error_handler_t::replace);
}

}
