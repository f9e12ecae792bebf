#pragma once

#include <QDBusConnection>
#include <QDBusUnixFileDescriptor>
#include <QObject>
#include <QString>
#include <optional>

namespace murbo {

/// Keeps the computer awake while something long is under way. Where nobody can be asked for that, it sleeps
/// when it wants to. Main thread only.
class SleepInhibitor : public QObject {
    Q_OBJECT

public:
    /// On the session's bus, or on one that is given.
    explicit SleepInhibitor(std::optional<QDBusConnection> bus = {}, QObject* parent = nullptr);
    ~SleepInhibitor() override { release(); }

    /// Asks the system not to sleep, and says why. A second time changes nothing.
    void hold(const QString& reason);
    void release();
    bool isHeld() const { return held; }

private:
    void askPortal(const QString& reason);
    void askLogin(const QString& reason);

    std::optional<QDBusConnection> bus;
    bool held = false;
    QString request;              ///< the portal's, to be closed
    QDBusUnixFileDescriptor lock; ///< the login manager's, to be let go
};

}
