#pragma once

#include "core/mcp/MCPHttp.h"

#include <QByteArray>
#include <QObject>
#include <chrono>

class QTcpSocket;

namespace murbo {

class MCPHost;

/// One connection of an AI app: one request, one response, then the end. It deletes itself. A slow or silent
/// one costs a buffer and no thread; beyond `most` the oldest that hasn't asked anything yet goes.
class MCPConnection : public QObject {
    Q_OBJECT

public:
    static constexpr int most = 256;

    MCPConnection(QTcpSocket* accepted, MCPHost& host);

private:
    void read();
    void respond(const MCPHttp::Request& request);
    void send(const std::string& response);
    void lingering();
    void makeRoom();

    QTcpSocket* socket;
    MCPHost& host;
    QByteArray received;
    enum class State { reading, answering, ending } state = State::reading;
};

}
