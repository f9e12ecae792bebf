#include "core/mcp/MCPHttp.h"

#include "platform/base/Text.h"

#include <algorithm>
#include <charconv>

#include <fmt/format.h>

namespace murbo::MCPHttp {

namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::string_view blankLine = "\r\n\r\n";

char lowered(char c) {
    return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string lowered(std::string_view text) {
    std::string low(text);
    std::ranges::transform(low, low.begin(), [](char c) { return lowered(c); });
    return low;
}

std::string_view trimmed(std::string_view text) {
    const auto from = text.find_first_not_of(" \t");
    return from == text.npos ? "" : text.substr(from, text.find_last_not_of(" \t") - from + 1);
}

std::string_view firstWord(std::string_view line) {
    line = trimmed(line);
    return line.substr(0, line.find(' '));
}

struct Head {
    std::string method;
    Headers headers;
    std::size_t length = 0; ///< bytes, with the blank line
    std::size_t body = 0;   ///< bytes announced
};

std::size_t announced(const Headers& headers) {
    const auto found = headers.find("content-length");
    if (found == headers.end()) return 0;
    const auto& text = found->second;
    std::size_t length = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), length);
    if (end != text.data() + text.size() || text.empty()) return 0;
    if (error == std::errc::result_out_of_range) return maxBytes + 1;
    return error == std::errc() ? length : 0;
}

std::optional<Head> head(std::string_view received) {
    const auto end = received.substr(0, maxHeadBytes).find(blankLine);
    if (end == received.npos || !Text::isUtf8(received.substr(0, end))) return std::nullopt;
    Head read{.length = end + blankLine.size()};
    auto rest = received.substr(0, end);
    for (bool first = true; first || !rest.empty(); first = false) {
        const auto line = rest.substr(0, rest.find(lineEnd));
        rest.remove_prefix(std::min(rest.size(), line.size() + lineEnd.size()));
        const auto colon = line.find(':');
        if (first) {
            read.method = firstWord(line);
        } else if (colon != line.npos) {
            read.headers[lowered(line.substr(0, colon))] = trimmed(line.substr(colon + 1));
        }
    }
    read.body = announced(read.headers);
    return read;
}

/// The host of "http://name:port/…", in lower case; empty for what is no URL.
std::string hostOf(std::string_view url) {
    const auto scheme = url.find("://");
    if (scheme == url.npos || scheme == 0) return "";
    auto authority = url.substr(scheme + 3);
    authority = authority.substr(0, authority.find_first_of("/?#"));
    authority = authority.substr(authority.rfind('@') + 1); // npos + 1 is the start
    auto host = lowered(authority.substr(0, authority.find(':')));
    const auto isName = [](char c) {
        return ('a' <= c && c <= 'z') || ('0' <= c && c <= '9') || c == '.' || c == '-';
    };
    return std::ranges::all_of(host, isName) ? host : "";
}

bool isOurs(const std::string& host) {
    return host == "127.0.0.1" || host == "localhost";
}

}

std::optional<Incoming> request(std::string_view received) {
    auto read = head(received);
    if (!read || received.size() - read->length < read->body) return std::nullopt;
    return Incoming{std::move(read->method), std::move(read->headers),
                    std::string(received.substr(read->length, read->body))};
}

bool isTooLong(std::string_view received) {
    const auto read = head(received);
    if (!read) return received.size() >= maxHeadBytes;
    return read->body > maxBytes || read->length + read->body > maxBytes;
}

bool allowed(const Headers& headers) {
    if (const auto origin = headers.find("origin");
        origin != headers.end() && !isOurs(hostOf(origin->second)))
        return false;
    const auto host = headers.find("host");
    return host != headers.end() && isOurs(hostOf("http://" + host->second));
}

std::optional<std::string> refusal(const Incoming& request) {
    if (!allowed(request.headers)) return response("403 Forbidden");
    if (request.method != "POST") return response("405 Method Not Allowed");
    return std::nullopt;
}

std::string response(std::string_view status, std::string_view body) {
    return fmt::format(
        "HTTP/1.1 {}\r\nContent-Type: application/json\r\nContent-Length: {}\r\nConnection: close\r\n\r\n{}",
        status, body.size(), body);
}

std::string parseError() {
    return response(badRequest,
                    R"({"jsonrpc":"2.0","id":null,"error":{"code":-32700,"message":"Parse error"}})");
}

}
