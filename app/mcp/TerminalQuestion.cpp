#include "app/mcp/TerminalQuestion.h"

#include "app/mcp/MCPHost.h"

#include <QSocketNotifier>
#include <array>

#include <fmt/format.h>
#include <unistd.h>

namespace murbo {

TerminalQuestion::TerminalQuestion(MCPHost& asking) : host(asking) {
    if (!isatty(STDIN_FILENO) || !isatty(STDERR_FILENO)) return;
    connect(&host, &MCPHost::questionChanged, this, &TerminalQuestion::show);
    auto* notifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &TerminalQuestion::read);
}

void TerminalQuestion::show() {
    const auto& question = host.question();
    if (!question) return;
    const auto text =
        fmt::format("{}{}{}?  a: Allow  t: Allow for 10 Minutes  d: Don't Allow\n", question->tool->title(),
                    question->asked.empty() ? "" : ", ", question->asked);
    std::fputs(text.c_str(), stderr);
}

void TerminalQuestion::read() {
    std::array<char, 256> bytes;
    const auto count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count <= 0) { // nobody can answer any more
        findChild<QSocketNotifier*>()->setEnabled(false);
        return;
    }
    typed.append(bytes.data(), static_cast<std::size_t>(count));
    for (auto end = typed.find('\n'); end != typed.npos; end = typed.find('\n')) {
        const auto line = typed.substr(0, end);
        typed.erase(0, end + 1);
        answer(line);
    }
}

void TerminalQuestion::answer(const std::string& line) {
    if (!host.question() || line.empty()) return;
    switch (line.front()) {
        case 'a':
            return host.reply(true);
        case 't':
            return host.reply(true, true);
        case 'd':
            return host.reply(false);
        default:
            show();
    }
}

}
