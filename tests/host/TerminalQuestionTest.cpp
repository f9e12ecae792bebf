#include "app/mcp/MCPHost.h"
#include "app/mcp/TerminalQuestion.h"
#include "tests/host/HeldSession.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>
#include <poll.h>
#include <pty.h>
#include <unistd.h>

using namespace murbo;
using nlohmann::json;

namespace {

/// A terminal in the place of this process's standard input and error.
class OwnTerminal {
public:
    OwnTerminal() {
        int inside = -1;
        if (openpty(&outside, &inside, nullptr, nullptr, nullptr) != 0) return;
        for (const int stream : {0, 2}) dup2(inside, stream);
        close(inside);
    }
    ~OwnTerminal() {
        for (const int at : {0, 1}) {
            dup2(before[at], at == 0 ? 0 : 2);
            close(before[at]);
        }
        hangUp();
    }
    void hangUp() { close(std::exchange(outside, -1)); }

    /// Types something, and gives what stands on the terminal after it but for that itself.
    std::string type(const std::string& typed) {
        EXPECT_EQ(write(outside, typed.data(), typed.size()), static_cast<ssize_t>(typed.size()));
        for (int turn = 0; turn < 3; ++turn) QCoreApplication::processEvents(QEventLoop::AllEvents, 100);
        auto shown = read();
        if (shown.starts_with(typed)) shown.erase(0, typed.size());
        return shown;
    }
    std::string read() {
        std::string shown;
        char bytes[4096];
        for (pollfd ready{outside, POLLIN, 0}; poll(&ready, 1, 50) > 0;) {
            const auto count = ::read(outside, bytes, sizeof bytes);
            if (count <= 0) break;
            shown.append(bytes, static_cast<std::size_t>(count));
        }
        std::erase(shown, '\r');
        return shown;
    }

private:
    int before[2] = {dup(0), dup(2)};
    int outside = -1;
};

}

TEST(TerminalQuestion, isAnsweredByALetterAndReturn) {
    auto session = std::make_shared<HeldSession>();
    MCPHost host(nullptr);
    host.setSession(session);
    auto permissions = host.permissions();
    permissions.set(MCPPermissions::Permission::ask, *MCPTool::named("rename_video"));
    host.setPermissions(permissions);
    const auto rename = [&](const char* title) {
        host.call("rename_video", {{"video", "V1"}, {"title", title}}, nullptr, [](const json&) {});
    };
    const auto title = [&] { return session->project().videos[0].title; };
    const std::string asked =
        "Rename Video, V1, title Second?  a: Allow  t: Allow for 10 Minutes  d: Don't Allow\n";

    OwnTerminal terminal;
    TerminalQuestion question(host);
    EXPECT_EQ(terminal.type("a\n"), "") << "nothing was asked";
    rename("Second");
    EXPECT_EQ(terminal.read(), asked);
    EXPECT_EQ(terminal.type("\n"), "") << "an empty line is no answer, and no end";
    EXPECT_EQ(terminal.type("x\n"), asked);
    EXPECT_TRUE(host.question());
    terminal.type("d\n");
    EXPECT_FALSE(host.question());
    EXPECT_EQ(title(), "First");
    rename("Second");
    terminal.type("al");
    EXPECT_TRUE(host.question()) << "until return is pressed";
    terminal.type("low\n");
    EXPECT_EQ(title(), "Second");
    rename("Third");
    terminal.type("t\n");
    rename("Fourth");
    EXPECT_FALSE(host.question()) << "for ten minutes";
    EXPECT_EQ(title(), "Fourth");
    host.setPermissions(permissions);
    rename("Fifth");
    EXPECT_TRUE(host.question());
    terminal.hangUp();
    QCoreApplication::processEvents(QEventLoop::AllEvents, 100);
    EXPECT_FALSE(host.question()) << "nobody can answer any more";
    EXPECT_EQ(title(), "Fourth");
}
