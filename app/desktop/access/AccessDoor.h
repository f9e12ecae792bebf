#pragma once

#include <QLocalServer>
#include <QObject>
#include <QPointF>

namespace murbo {

/// Shows a program on the same machine what a screen reader would be given: each line that comes in is
/// answered by one line of JSON with all that is in the windows, where the pointer last came to one (what has
/// moved it knows by that when the move was taken), and whether one of them has the keys. It reads and
/// changes nothing; whoever looks uses mouse and keys like everybody. It is there only where the environment
/// names its socket.
class AccessDoor : public QObject {
    Q_OBJECT

public:
    static constexpr const char* variable = "MURBO_ACCESS";

    /// Opens it where the environment asks for it; elsewhere nothing is done.
    explicit AccessDoor(QObject* parent = nullptr);

    bool open() const { return server.isListening(); }
    /// What is in all windows that are shown.
    QByteArray shown() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void answer();

    QLocalServer server;
    QPointF pointer; ///< pixels on the screen
};

}
