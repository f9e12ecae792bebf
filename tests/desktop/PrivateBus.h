#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QStandardPaths>
#include <QString>

namespace murbo {

/// A bus of the test's own; `address` is empty where there is no program for one.
class PrivateBus {
public:
    PrivateBus() {
        if (QStandardPaths::findExecutable("dbus-daemon").isEmpty()) return;
        daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address"});
        if (daemon.waitForReadyRead(5000)) address = QString::fromUtf8(daemon.readLine()).trimmed();
    }
    ~PrivateBus() {
        daemon.terminate();
        daemon.waitForFinished(2000);
    }
    /// A connection of that name, which is another one on each bus.
    QDBusConnection connect(const QString& name) const {
        return QDBusConnection::connectToBus(address, address + name);
    }
    /// Has an object answer as the portal; false where it could not.
    bool serve(QObject& portal) const {
        auto side = connect("portal");
        return side.registerService("org.freedesktop.portal.Desktop") &&
               side.registerObject("/org/freedesktop/portal/desktop", &portal,
                                   QDBusConnection::ExportAllSlots);
    }

    QString address;

private:
    QProcess daemon;
};

}
