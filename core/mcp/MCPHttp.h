#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace murbo {

/// As much of HTTP as AI apps speak with: one request a connection, POST alone, any path. Pure functions over
/// bytes; the socket is the host's.
namespace MCPHttp {

using Headers = std::map<std::string, std::string>; ///< names in lower case

struct Incoming {
    std::string method;
    Headers headers;
    std::string body;
};

/// The request at the start of what was received; nothing until it is there as a whole. Surplus bytes are
/// passed over.
std::optional<Incoming> request(std::string_view received);

/// Longest request, head and body. A longer one is never answered.
inline constexpr std::size_t maxBytes = std::size_t{64} << 20;
inline constexpr std::size_t maxHeadBytes = std::size_t{64} << 10;

/// Whether what was received, or what it announces, goes beyond that.
bool isTooLong(std::string_view received);

/// Whether a request may be trusted: a web page could reach the port through the owner's browser, but then
/// its origin or the name that it used gives it away.
bool allowed(const Headers& headers);

/// What is wrong with a request before its message is looked at, as a whole response; nothing where it may be
/// served.
std::optional<std::string> refusal(const Incoming& request);

/// A whole HTTP response.
std::string response(std::string_view status, std::string_view body = "");
inline constexpr std::string_view ok = "200 OK";
inline constexpr std::string_view accepted = "202 Accepted";
inline constexpr std::string_view badRequest = "400 Bad Request";

/// The response to a body that is no message.
std::string parseError();

}

}
