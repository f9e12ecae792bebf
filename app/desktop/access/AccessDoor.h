#pragma once

#include <QLocalServer>
#include <QObject>

namespace murbo {

/// Shows a program on the same machine what a screen reader would be given: each line that comes in is
/// answered by one line of JSON with all that is in the windows. It reads and changes nothing; whoever looks
/// uses mouse and keys like everybody. It is there only where the environment names its socket.
class AccessDoor : public QObject {
    Q_OBJECT

public:
    static constexpr const char* variable = "MURBO_ACCESS";

    /// Opens it where the environment asks for it; elsewhere nothing is done.
    explicit AccessDoor(QObject* parent = nullptr);

    bool open() const { return server.isListening(); }
    /// What is in all windows that are shown.
    static QByteArray shown();

private:
    void answer();

    QLocalServer server;
};

}
