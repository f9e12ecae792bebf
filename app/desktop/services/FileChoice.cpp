#include "app/desktop/services/FileChoice.h"

#include "app/desktop/services/FileFilter.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QUrl>
#include <utility>

namespace murbo {
namespace {

constexpr const char* service = "org.freedesktop.portal.Desktop";
constexpr const char* object = "/org/freedesktop/portal/desktop";
constexpr const char* chooser = "org.freedesktop.portal.FileChooser";
constexpr const char* requests = "org.freedesktop.portal.Request";
constexpr int patience = 5000; ///< ms until the portal has begun

}

FileChoice::FileChoice(std::optional<QDBusConnection> given, QObject* parent)
    : QObject(parent), bus(std::move(given)) {
    FileFilter::registerTypes();
}

void FileChoice::choose(const QString& kind, const QString& title) {
    if (!waitingFor.isEmpty()) return;
    waitingFor = kind;
    if (!bus) bus = QDBusConnection::sessionBus();
    if (!bus->isConnected()) {
        // After this call, as every other answer.
        QMetaObject::invokeMethod(this, &FileChoice::fail, Qt::QueuedConnection);
        return;
    }
    // The answer may come before the call's own: its address is worked out beforehand.
    const auto token = "murbo" + QString::number(++number);
    listen(QString(object) + "/request/" + bus->baseService().mid(1).replace('.', '_') + "/" + token);
    auto call = QDBusMessage::createMethodCall(service, object, chooser, "OpenFile");
    QVariantMap options{
        {"handle_token", token}, {"multiple", kind == "movies"}, {"directory", kind == "folder"}};
    if (const auto filters = FileFilter::of(kind); !filters.isEmpty())
        options["filters"] = QVariant::fromValue(filters);
    call << QString() << title << options;
    auto* watcher = new QDBusPendingCallWatcher(bus->asyncCall(call, patience), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<QDBusObjectPath> reply = *watcher;
        if (reply.isError()) return fail();
        if (!waitingFor.isEmpty() && reply.value().path() != path) listen(reply.value().path());
    });
}

void FileChoice::listen(const QString& request) {
    if (!path.isEmpty()) bus->disconnect(service, path, requests, "Response", this, nullptr);
    path = request;
    bus->connect(service, path, requests, "Response", this, SLOT(responded(uint, QVariantMap)));
}

void FileChoice::responded(uint response, const QVariantMap& results) {
    bus->disconnect(service, path, requests, "Response", this, SLOT(responded(uint, QVariantMap)));
    path.clear();
    QStringList paths;
    if (response == 0)
        for (const auto& uri : results.value("uris").toStringList())
            if (const QUrl url(uri); url.isLocalFile()) paths.append(url.toLocalFile());
    emit chosen(std::exchange(waitingFor, ""), paths);
}

void FileChoice::fail() {
    emit unavailable(std::exchange(waitingFor, ""));
}

}
