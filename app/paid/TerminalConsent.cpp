#include "app/paid/TerminalConsent.h"

#include "app/editor/Editor.h"
#include "app/editor/EndSignals.h"
#include "platform/base/Text.h"

#include <QEventLoop>
#include <QSocketNotifier>
#include <array>
#include <cstdio>

#include <unistd.h>

namespace murbo {
namespace {

/// The line that was typed; empty at the end of input.
std::string typedLine() {
    std::array<char, 256> bytes;
    const auto count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    return count > 0 ? std::string(bytes.data(), static_cast<std::size_t>(count)) : "";
}

}

TerminalConsent::TerminalConsent(Editor& asking, const EndSignals& ends) : editor(asking), endings(ends) {
    if (!isPossible()) return;
    editor.confirm = [this](const std::string& title, const std::string& text, const std::string&) {
        return ask(title, text);
    };
}

TerminalConsent::~TerminalConsent() {
    editor.confirm = nullptr;
}

bool TerminalConsent::isPossible() {
    return isatty(STDIN_FILENO) == 1 && isatty(STDERR_FILENO) == 1;
}

QCoro::Task<bool> TerminalConsent::ask(std::string title, std::string text) {
    std::fputs((title + "\n" + text + "\nGo? [y/N] ").c_str(), stderr);
    QEventLoop waiting;
    QSocketNotifier typed(STDIN_FILENO, QSocketNotifier::Read);
    bool ended = false;
    connect(&typed, &QSocketNotifier::activated, &waiting, &QEventLoop::quit);
    connect(&endings, &EndSignals::ending, &waiting, [&] {
        ended = true;
        waiting.quit();
    });
    waiting.exec();
    const auto answer = ended ? "" : Text::lowercased(Text::trimmed(typedLine()));
    if (ended) std::fputs("\n", stderr);
    co_return answer == "y" || answer == "yes";
}

}
