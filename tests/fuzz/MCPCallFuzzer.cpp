#include "core/mcp/MCPCalls.h"
#include "core/mcp/MCPServer.h"
#include "tests/ai/Footage.h"
#include "tests/fuzz/RoundTrip.h"

#include <nlohmann/json.hpp>

using namespace murbo;

namespace {

Project footage() {
    Footage made;
    made.addClip(0, {"one", "two two", "three"});
    made.addClip(100, {"over there", "ครับ"});
    made.addVideo("First", {made.cut(1, 4), made.cut(101, 104)});
    return made.project;
}

/// A call as the host carries it out, on a project of its own.
void carryOut(const nlohmann::json& message) {
    static const auto before = footage();
    auto project = before;
    try {
        const auto result =
            MCPCalls::call(MCPServer::toolName(message), MCPServer::arguments(message), project, {});
        require(!result.text.empty(), "a tool said nothing");
        require(result.step || project == before, "a read changed something");
        MCPServer::bytes(MCPServer::result(MCPServer::text(result.text, false), message));
    } catch (const Problem& problem) {
        require(!problem.message().empty(), "a failure without words");
        require(project == before, "half a change");
    }
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const auto message = MCPServer::message({reinterpret_cast<const char*>(bytes), size});
    if (!message) return 0;
    if (MCPServer::isCall(*message)) return carryOut(*message), 0;
    const auto reply = MCPServer::reply(*message, "1");
    require(!reply || reply->contains("id"), "an answer to nobody");
    return 0;
}
