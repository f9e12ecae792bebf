#include "app/desktop/access/AccessDoor.h"

#include "app/desktop/access/AccessTree.h"

#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalSocket>
#include <QMouseEvent>
#include <QWindow>

namespace murbo {
namespace {

QJsonObject json(const AccessNode& node) {
    return {{"depth", node.depth},
            {"role", node.role},
            {"name", node.name},
            {"description", node.description},
            {"value", node.value},
            {"place", QJsonArray{node.place.x(), node.place.y(), node.place.width(), node.place.height()}},
            {"focusable", node.focusable},
            {"focused", node.focused},
            {"enabled", node.enabled},
            {"checked", node.checked},
            {"selected", node.selected}};
}

}

AccessDoor::AccessDoor(QObject* parent) : QObject(parent) {
    const auto address = qEnvironmentVariable(variable);
    if (address.isEmpty()) return;
    server.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&server, &QLocalServer::newConnection, this, &AccessDoor::answer);
    QLocalServer::removeServer(address);
    if (server.listen(address)) qApp->installEventFilter(this);
}

bool AccessDoor::eventFilter(QObject* watched, QEvent* event) {
    if (watched->isWindowType() && event->type() == QEvent::MouseMove)
        pointer = static_cast<QMouseEvent*>(event)->globalPosition();
    return false;
}

QByteArray AccessDoor::shown() const {
    QJsonArray nodes;
    for (auto* window : QGuiApplication::topLevelWindows())
        if (window->isVisible())
            for (const auto& node : AccessTree::of(*window)) nodes.append(json(node));
    const QJsonObject all{{"active", QGuiApplication::focusWindow() != nullptr},
                          {"pointer", QJsonArray{pointer.x(), pointer.y()}},
                          {"items", nodes}};
    return QJsonDocument(all).toJson(QJsonDocument::Compact);
}

void AccessDoor::answer() {
    auto* socket = server.nextPendingConnection();
    connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    connect(socket, &QLocalSocket::readyRead, socket, [this, socket] {
        while (socket->canReadLine()) {
            socket->readLine();
            socket->write(shown() + "\n");
        }
    });
}

}
