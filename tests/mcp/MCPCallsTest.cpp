#include "core/mcp/MCPCalls.h"
#include "tests/mcp/Calling.h"

using namespace murbo;

using MCPCallsTest = Calling;

TEST_F(MCPCallsTest, onlyToolsOfAProjectAreCarriedOut) {
    EXPECT_EQ(problem("what", "{}"), "Murbo has no tool called what.");
    EXPECT_EQ(problem("Overview", "{}"), "Murbo has no tool called Overview.");
    EXPECT_EQ(problem("undo_my_last", "{}"), "Murbo has no tool called undo_my_last.");
    for (const auto& tool : MCPTool::all()) {
        const std::string name(tool.name);
        const auto words = problemOf([&] { call(name.c_str(), std::string(tool.example)); });
        EXPECT_EQ(words == MCPCalls::unknown(name), MCPCalls::isInApp(tool.id)) << words;
    }
}

TEST_F(MCPCallsTest, wordsThatWereReadBeforeAreUsed) {
    context.said = std::make_shared<const Said>(Project());
    EXPECT_EQ(text("search_lines", R"({"query": "boss"})"), "Nothing said holds “boss”.");
}
