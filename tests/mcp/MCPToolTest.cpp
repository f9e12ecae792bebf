#include "core/mcp/MCPArguments.h"
#include "core/mcp/MCPTool.h"
#include "tests/ProblemOf.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using nlohmann::json;

TEST(MCPTool, schemasAlwaysHaveTheirThreeKeys) {
    EXPECT_EQ(MCPTool::named("overview")->listed()["inputSchema"],
              (json{{"type", "object"}, {"properties", json::object()}, {"required", json::array()}}));
    EXPECT_EQ(MCPTool::named("read_loudness")->listed()["inputSchema"]["required"], json::array());
    const auto breaks =
        MCPTool::named("set_captions")->listed()["inputSchema"]["properties"]["breaks"]["items"];
    EXPECT_EQ(breaks["properties"]["pieces"]["items"], (json{{"type", "string"}}));
    EXPECT_EQ(breaks["required"], (json{"line", "pieces"}));
    EXPECT_EQ(MCPTool::named("undo_my_last")->title(), "Undo My Last");
    EXPECT_EQ(MCPTool::named("nothing"), nullptr);
}

TEST(MCPTool, eachStandsUnderItsIdWithARightCall) {
    ASSERT_EQ(MCPTool::all().size(), 22u);
    for (std::size_t at = 0; at < MCPTool::all().size(); ++at) {
        const auto& tool = MCPTool::all()[at];
        EXPECT_EQ(static_cast<std::size_t>(tool.id), at) << tool.name;
        const auto schema = tool.listed()["inputSchema"];
        for (const auto& param : tool.params)
            EXPECT_EQ(std::ranges::count(schema["required"], json(param.name)), param.required)
                << tool.name << " " << param.name;
        EXPECT_EQ(problemOf([&] { MCPArguments::check(tool, json::parse(tool.example)); }), "") << tool.name;
        const auto example = json::parse(tool.example);
        for (const auto& [name, _] : example.items())
            EXPECT_TRUE(schema["properties"].contains(name)) << tool.name << " " << name;
    }
}
