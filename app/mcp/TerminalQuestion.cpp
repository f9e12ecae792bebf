#include "app/mcp/TerminalQuestion.h"

#include "app/mcp/MCPHost.h"

#include <QSocketNotifier>
#include <array>

#include <fmt/format.h>
#include <unistd.h>

namespace murbo {

namespace {

std::string words(const MCPHost::Question& question) {
    return question.tool->title() + (question.asked.empty() ? "" : ", ") + question.asked;
}

}

TerminalQuestion::TerminalQuestion(MCPHost& asking) : host(asking) {
    if (!isatty(STDIN_FILENO) || !isatty(STDERR_FILENO)) {
        refuseFromNowOn();
        return;
    }
    connect(&host, &MCPHost::questionChanged, this, &TerminalQuestion::show);
    auto* notifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &TerminalQuestion::read);
}

void TerminalQuestion::show() {
    const auto& question = host.question();
    if (!question) return;
    const auto text = words(*question) + "?  a: Allow  t: Allow for 10 Minutes  d: Don't Allow\n";
    std::fputs(text.c_str(), stderr);
}

void TerminalQuestion::read() {
    std::array<char, 256> bytes;
    const auto count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count <= 0) {
        findChild<QSocketNotifier*>()->setEnabled(false);
        return refuseFromNowOn();
    }
    typed.append(bytes.data(), static_cast<std::size_t>(count));
    for (auto end = typed.find('\n'); end != typed.npos; end = typed.find('\n')) {
        const auto line = typed.substr(0, end);
        typed.erase(0, end + 1);
        answer(line);
    }
}

void TerminalQuestion::refuseFromNowOn() {
    disconnect(&host, &MCPHost::questionChanged, this, nullptr);
    const auto refuse = [this] {
        const auto& question = host.question();
        if (!question) return;
        std::fputs(
            fmt::format("{}: nobody can be asked without a terminal, so it was not done.\n", words(*question))
                .c_str(),
            stderr);
        host.reply(false);
    };
    connect(&host, &MCPHost::questionChanged, this, refuse, Qt::QueuedConnection);
    refuse();
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
