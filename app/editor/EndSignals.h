#pragma once

#include <QObject>
#include <csignal>

class QSocketNotifier;

namespace murbo {

/// While it lives, Ctrl-C and a request to end arrive as a signal of Qt instead of killing the program.
class EndSignals : public QObject {
    Q_OBJECT

public:
    EndSignals();
    ~EndSignals() override;

signals:
    void ending();

private:
    sigset_t before;
    int descriptor;
};

}
