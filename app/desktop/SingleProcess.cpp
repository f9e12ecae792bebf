#include "app/desktop/SingleProcess.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QLocalSocket>
#include <QStandardPaths>

namespace murbo {
namespace {

constexpr int patience = 1500;           ///< ms
constexpr qint64 longestMessage = 65536; ///< bytes

}

SingleProcess::SingleProcess(QObject* parent) : QObject(parent) {
    server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server, &QLocalServer::newConnection, this, &SingleProcess::answer);
}

/// In the run-time folder, which is the person's own.
QString SingleProcess::address() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation)).filePath("murbo-desktop");
}

bool SingleProcess::handOver(const std::vector<std::filesystem::path>& projects) {
    QLocalSocket socket;
    socket.connectToServer(address());
    if (socket.waitForConnected(patience)) {
        QJsonArray paths;
        for (const auto& path : projects) paths.append(QString::fromStdString(path.string()));
        socket.write(QJsonDocument(paths).toJson(QJsonDocument::Compact) + "\n");
        // The other one says that it has understood: a socket alone may be that of a process that hangs.
        if (socket.waitForReadyRead(patience)) return true;
    }
    QLocalServer::removeServer(address());
    server.listen(address());
    return false;
}

void SingleProcess::answer() {
    auto* socket = server.nextPendingConnection();
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QLocalSocket::readyRead, this, [this, socket] {
        if (socket->bytesAvailable() > longestMessage) return socket->abort();
        if (!socket->canReadLine()) return;
        QStringList paths;
        for (const auto path : QJsonDocument::fromJson(socket->readLine()).array())
            paths.append(path.toString());
        socket->write("\n");
        socket->flush();
        emit asked(paths);
    });
}

}
