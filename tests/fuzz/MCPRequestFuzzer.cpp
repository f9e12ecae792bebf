#include "core/mcp/MCPHttp.h"
#include "core/mcp/MCPServer.h"
#include "tests/fuzz/RoundTrip.h"

#include <nlohmann/json.hpp>

using namespace murbo;

namespace {

/// A request that comes in pieces is there once its last byte is, and says the same then.
void checkPieces(std::string_view received, const MCPHttp::Incoming& whole) {
    const auto head = received.find("\r\n\r\n") + 4;
    const auto end = head + whole.body.size();
    require(!MCPHttp::request(received.substr(0, head - 1)), "a request without its blank line");
    require(whole.body.empty() || !MCPHttp::request(received.substr(0, end - 1)),
            "a request without its end");
    const auto cut = MCPHttp::request(received.substr(0, end));
    require(cut && cut->method == whole.method && cut->headers == whole.headers && cut->body == whole.body,
            "surplus bytes change a request");
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string_view received(reinterpret_cast<const char*>(bytes), size);
    const auto request = MCPHttp::request(received);
    MCPHttp::isTooLong(received);
    if (!request) return 0;
    checkPieces(received, *request);
    const bool isServed = !MCPHttp::refusal(*request);
    require(!isServed || request->method == "POST", "something else than POST is served");
    require(!isServed || request->headers.contains("host"), "a request to no host is served");
    if (const auto message = MCPServer::message(request->body))
        if (const auto reply = MCPServer::reply(*message, "1"))
            require(!MCPServer::bytes(*reply).empty(), "an answer of nothing");
    return 0;
}
