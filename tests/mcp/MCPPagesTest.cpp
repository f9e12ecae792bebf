#include "core/mcp/MCPServer.h"
#include "core/mcp/MCPTool.h"
#include "platform/base/Files.h"
#include "platform/base/RawText.h"
#include "tests/TemporaryFolder.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using namespace murbo;

namespace {

const std::map<MCPTool::Kind, std::string> headings{
    {MCPTool::Kind::read, "Reading"},
    {MCPTool::Kind::changeClips, "Changing clips"},
    {MCPTool::Kind::changeVideos, "Changing videos"},
    {MCPTool::Kind::library, "The owner's library: asked for each time, unless allowed"}};

std::string rows(std::span<const MCPTool::Param> params, const std::string& indent = "") {
    std::string text;
    for (const auto& param : params)
        text += fmt::format("{}- `{}`, {}{}: {}\n", indent, param.name, rawText(param.type),
                            param.required ? "" : ", optional", param.about) +
                rows(param.items, indent + "  ");
    return text;
}

std::string page() {
    std::string page =
        "# The tools of AI apps\n\nWhat an AI app can do with the project that is open. "
        "[How to connect one](ai-apps.md). `./dev pages` prints this page anew from the program's own "
        "table.\n";
    std::string before;
    for (const auto& tool : MCPTool::all()) {
        if (headings.at(tool.kind) != before)
            page += fmt::format("\n## {}\n", before = headings.at(tool.kind));
        page += fmt::format("\n### {}\n\n{}\n", tool.name, tool.about);
        if (!tool.params.empty())
            page += fmt::format("\n{}\n`{} {}`\n", rows(tool.params), tool.name, tool.example);
    }
    page += "\n## Prompts\n\nReady-made requests; each takes what it works on.\n\n";
    for (const auto& prompt : MCPServer::prompts())
        page += fmt::format("- `{}`: {}\n", prompt["name"].get<std::string>(),
                            prompt["description"].get<std::string>());
    return page;
}

}

TEST(MCPPages, theToolsPageIsTheProgramsOwn) {
    const auto file = std::filesystem::path(MURBO_TESTS).parent_path() / "docs" / "mcp.md";
    if (std::getenv("MURBO_RENEW_PAGES")) Files::writeWhole(file, page());
    EXPECT_EQ(contentsOf(file), page()) << "The page is stale: ./dev pages renews it.";
}
