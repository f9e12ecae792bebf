#include "app/mcp/bridge/ClaudeSetup.h"
#include "app/mcp/bridge/MCPBridge.h"
#include "app/options/Ending.h"
#include "app/options/Options.h"
#include "core/mcp/MCPServer.h"

#include <csignal>
#include <cstdio>

#include <unistd.h>

using namespace murbo;

namespace {

void setUpClaude() {
    const auto written = ClaudeSetup::addToDesktop();
    std::printf("Wrote %s: Claude Desktop starts %s --mcp.\n", written.file.c_str(),
                ClaudeSetup::command().c_str());
    if (!written.backup.empty()) std::printf("It was kept as it was in %s.\n", written.backup.c_str());
    std::puts("Claude Desktop is set up. Quit and open Claude Desktop again to connect.");
}

}

int main(int count, char** words) {
    std::signal(SIGPIPE, SIG_IGN);
    const auto match = Options::match(Arguments({words, words + count}));
    if (match && match->option->name == std::string_view("--set-up-claude")) return Ending::of(setUpClaude);
    return Ending::of([] { MCPBridge::run({STDIN_FILENO, STDOUT_FILENO, MCPServer::port}); });
}
