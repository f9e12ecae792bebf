#include "app/mcp/MCPConnection.h"

#include "core/mcp/MCPServer.h"

#include <QPointer>
#include <QTcpSocket>
#include <QTimer>

#include <nlohmann/json.hpp>
#include <sys/socket.h>

namespace murbo {

namespace {

constexpr qint64 readAtOnce = 1 << 20;      ///< bytes
constexpr std::chrono::seconds patience{2}; ///< for an app to take its answer and close

}

MCPConnection::MCPConnection(QTcpSocket* accepted, Call calling, QObject* parent)
    : QObject(parent), socket(accepted), call(std::move(calling)) {
    makeRoom();
    socket->setParent(this);
    socket->setReadBufferSize(readAtOnce);
    connect(socket, &QTcpSocket::readyRead, this, &MCPConnection::read);
    connect(socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
    connect(socket, &QTcpSocket::errorOccurred, this, &QObject::deleteLater);
    if (socket->state() != QAbstractSocket::ConnectedState) deleteLater();
    if (socket->bytesAvailable() > 0) read();
}

void MCPConnection::makeRoom() {
    // Children stand in the order in which they came.
    auto open = parent()->findChildren<MCPConnection*>(Qt::FindDirectChildrenOnly);
    open.removeOne(this);
    for (const auto dispensable : {Phase::reading, Phase::ending})
        for (auto at = open.begin(); at != open.end() && open.size() >= maxConnections;) {
            if ((*at)->phase == dispensable) {
                delete *at;
                at = open.erase(at);
            } else {
                ++at;
            }
        }
}

void MCPConnection::read() {
    while (socket->bytesAvailable() > 0) {
        const auto piece = socket->read(readAtOnce);
        if (phase != Phase::reading) continue; // surplus bytes, read so that the answer isn't lost in a reset
        received += piece;
        const std::string_view bytes(received.constData(), static_cast<std::size_t>(received.size()));
        if (MCPHttp::isTooLong(bytes)) return deleteLater();
        if (const auto request = MCPHttp::request(bytes)) {
            received = {};
            respond(*request);
        }
    }
}

void MCPConnection::respond(const MCPHttp::Incoming& request) {
    phase = Phase::answering;
    if (const auto refusal = MCPHttp::refusal(request)) return send(*refusal);
    const auto message = MCPServer::message(request.body);
    if (!message) return send(MCPHttp::parseError());
    if (MCPServer::isCall(*message)) {
        const QPointer<MCPConnection> self(this);
        return call(MCPServer::toolName(*message), MCPServer::arguments(*message), this,
                    [self, message = *message](nlohmann::json result) {
                        const auto answer = MCPServer::result(std::move(result), message);
                        if (self) self->send(MCPHttp::response(MCPHttp::ok, MCPServer::bytes(answer)));
                    });
    }
    const auto answer = MCPServer::reply(*message, MURBO_VERSION);
    send(answer ? MCPHttp::response(MCPHttp::ok, MCPServer::bytes(*answer))
                : MCPHttp::response(MCPHttp::accepted));
}

void MCPConnection::send(const std::string& response) {
    phase = Phase::ending;
    socket->write(response.data(), static_cast<qint64>(response.size()));
    socket->flush();
    connect(socket, &QTcpSocket::bytesWritten, this, &MCPConnection::lingering);
    QTimer::singleShot(patience, this, &QObject::deleteLater);
    lingering();
}

/// Once all is written: says so, and goes on reading until the app has closed.
void MCPConnection::lingering() {
    if (socket->bytesToWrite() == 0) ::shutdown(static_cast<int>(socket->socketDescriptor()), SHUT_WR);
}

}
