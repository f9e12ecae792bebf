#pragma once

#include <QObject>
#include <string>

#include <qcorotask.h>

namespace murbo {

class Editor;
class EndSignals;

/// Asks on a terminal whether a session may spend money: on standard error, answered on standard input by "y"
/// or "yes" and return. Anything else is no, and so is a request to end.
class TerminalConsent : public QObject {
    Q_OBJECT

public:
    /// Lets the editor ask by it as long as it lives, where that is possible.
    TerminalConsent(Editor& editor, const EndSignals& endings);
    ~TerminalConsent() override;

    /// Whether standard input and standard error are a terminal.
    static bool isPossible();

private:
    QCoro::Task<bool> ask(std::string title, std::string text);

    Editor& editor;
    const EndSignals& endings;
};

}
