#include "app/desktop/services/SleepInhibitor.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>
#include <utility>

namespace murbo {
namespace {

constexpr const char* portal = "org.freedesktop.portal.Desktop";
constexpr uint suspend = 4; ///< of the portal's flags
constexpr int patience = 5000;

}

SleepInhibitor::SleepInhibitor(std::optional<QDBusConnection> given, QObject* parent)
    : QObject(parent), bus(std::move(given)) {}

void SleepInhibitor::hold(const QString& reason) {
    if (held) return;
    held = true;
    if (!bus) bus = QDBusConnection::sessionBus();
    if (bus->isConnected())
        askPortal(reason);
    else
        askLogin(reason);
}

void SleepInhibitor::askPortal(const QString& reason) {
    auto call = QDBusMessage::createMethodCall(portal, "/org/freedesktop/portal/desktop",
                                               "org.freedesktop.portal.Inhibit", "Inhibit");
    call << QString() << suspend << QVariantMap{{"reason", reason}};
    auto* watcher = new QDBusPendingCallWatcher(bus->asyncCall(call, patience), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, reason] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
        if (reply.isError()) return askLogin(reason);
        request = reply.value().path();
        if (!held) release(); // it was let go of meanwhile
    });
}

void SleepInhibitor::askLogin(const QString& reason) {
    if (!held || !QDBusConnection::systemBus().isConnected()) return;
    auto call = QDBusMessage::createMethodCall("org.freedesktop.login1", "/org/freedesktop/login1",
                                               "org.freedesktop.login1.Manager", "Inhibit");
    call << "sleep"
         << "Murbo" << reason << "block";
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::systemBus().asyncCall(call, patience), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *watcher;
        if (!reply.isError() && held) lock = reply.value();
    });
}

void SleepInhibitor::release() {
    held = false;
    lock = {};
    if (request.isEmpty()) return;
    bus->send(QDBusMessage::createMethodCall(portal, request, "org.freedesktop.portal.Request", "Close"));
    request.clear();
}

}
