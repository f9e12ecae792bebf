#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// The Model Context Protocol as Murbo speaks it: JSON-RPC 2.0, a message at a time, no sessions, no
/// streams. Pure functions over messages.
namespace MCPServer {

inline constexpr std::uint16_t port = 17172; ///< on 127.0.0.1 alone

/// For the bridge, when nothing is listening.
extern const char* const closed;

/// The message in a body; nothing where that is no JSON object.
std::optional<nlohmann::json> message(std::string_view body);

/// Whether a message asks for a tool and waits for the answer.
bool isCall(const nlohmann::json& message);
/// The name of the tool that a call asks for; empty where it gives none.
std::string toolName(const nlohmann::json& call);
/// The arguments of a call, an object.
nlohmann::json arguments(const nlohmann::json& call);

/// The answer to a message, with a call of a tool answered as by nobody; nothing for a notification.
std::optional<nlohmann::json> reply(const nlohmann::json& message, std::string_view version);

/// The answer with a result, under the message's own id.
nlohmann::json result(nlohmann::json object, const nlohmann::json& message);

/// The result of a tool's call.
nlohmann::json text(std::string_view text, bool failed);

/// The list of prompts.
nlohmann::json prompts();

/// A message as bytes. Text that is not UTF-8 is repaired.
std::string bytes(const nlohmann::json& message);

}

}
