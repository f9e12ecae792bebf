#include "app/desktop/services/FolderView.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace murbo::FolderView {
namespace {

constexpr int patience = 5000;

bool open(const QString& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

}

void show(const QString& path) {
    const QFileInfo file(path);
    if (file.isDir()) {
        open(file.absoluteFilePath());
        return;
    }
    const auto folder = file.absolutePath();
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        open(folder);
        return;
    }
    auto call =
        QDBusMessage::createMethodCall("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1",
                                       "org.freedesktop.FileManager1", "ShowItems");
    call << QStringList{QUrl::fromLocalFile(file.absoluteFilePath()).toString()} << QString();
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, patience), QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [watcher, folder] {
        watcher->deleteLater();
        if (const QDBusPendingReply<> reply = *watcher; reply.isError()) open(folder);
    });
}

bool play(const QString& file) {
    return QFileInfo::exists(file) && open(file);
}

}
