#pragma once

#include <QObject>
#include <string>

namespace murbo {

class MCPHost;

/// Asks the owner's questions on a terminal: on standard error, answered on standard input by a letter and
/// return. Where either is no terminal, or no longer one, nobody can answer: what is asked for is not done.
class TerminalQuestion : public QObject {
    Q_OBJECT

public:
    explicit TerminalQuestion(MCPHost& host);

private:
    void show();
    void read();
    void refuseFromNowOn();
    void answer(const std::string& line);

    MCPHost& host;
    std::string typed;
};

}
