#pragma once

#include "core/mcp/MCPHttp.h"

#include <QByteArray>
#include <QObject>
#include <functional>
#include <string>

#include <nlohmann/json_fwd.hpp>

class QTcpSocket;

namespace murbo {

/// One connection of an AI app: one request, one response, then the end. It deletes itself. A slow or silent
/// one costs a buffer and no thread; beyond `most` of one parent the oldest that hasn't asked anything yet
/// goes.
class MCPConnection : public QObject {
    Q_OBJECT

public:
    static constexpr int maxConnections = 256;

    /// Takes the result of a call, at once or later.
    using Answer = std::function<void(nlohmann::json)>;
    /// Carries out a call of a tool for the app at the other end of a connection.
    using Call = std::function<void(const std::string& tool, const nlohmann::json& arguments,
                                    MCPConnection* from, Answer answer)>;

    MCPConnection(QTcpSocket* accepted, Call call, QObject* parent);

private:
    void read();
    void respond(const MCPHttp::Incoming& request);
    void send(const std::string& response);
    void lingering();
    void makeRoom();

    QTcpSocket* socket;
    Call call;
    QByteArray received;
    enum class Phase { reading, answering, ending } phase = Phase::reading;
};

}
