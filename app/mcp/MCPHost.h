#pragma once

#include "app/mcp/MCPActivity.h"
#include "app/mcp/MCPSession.h"
#include "core/ai/SaidCache.h"
#include "core/mcp/MCPContext.h"
#include "core/mcp/MCPPermissions.h"
#include "core/mcp/MCPServer.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <memory>
#include <string>

class QTcpServer;

namespace murbo {

class SettingsStore;

/// The one door through which AI apps reach the open project: it listens on the loopback address, carries
/// each call of a tool through the owner's permission to the session, and keeps what the owner sees of it.
/// Lives on the main thread; a call never waits for another one's question.
class MCPHost : public QObject {
    Q_OBJECT

public:
    /// What the owner is being asked.
    struct Question {
        UUID id = UUID::make();
        const MCPTool* tool = nullptr;
        std::string asked;
    };
    /// Takes the result of a call, at once or once the owner has answered.
    using Answer = std::function<void(nlohmann::json)>;

    /// `store` keeps the permissions; none with null.
    explicit MCPHost(SettingsStore* store, QObject* parent = nullptr);
    ~MCPHost() override;

    /// Begins to listen; on any free port with 0. Where it can't, `problem` says why.
    void start(std::uint16_t port = MCPServer::port);
    void stop();
    std::uint16_t port() const;
    const std::string& problem() const { return listenerProblem; }

    /// The session of the window in front; null where no project is open.
    void setSession(std::shared_ptr<MCPSession> open) { session = std::move(open); }

    /// One call of a tool for the app that `client` stands for. An app that goes while the owner is asked
    /// takes its question with it.
    void call(const std::string& name, const nlohmann::json& arguments, QObject* client, Answer answer);

    const std::optional<Question>& question() const { return asking; }
    /// The owner's answer to the question.
    void reply(bool yes, bool forTenMinutes = false);

    /// Takes back all that was done since before an entry's change, where its step can still be undone.
    bool undoToBefore(const MCPActivity::Entry& entry);

    const MCPPermissions& permissions() const { return allowed; }
    void setPermissions(MCPPermissions permissions);

    const MCPActivity& activity() const { return done; }
    int busy() const { return running; }

signals:
    void questionChanged();
    void called(); ///< the activity has a new entry
    void busyChanged();
    void problemChanged();

private:
    struct CallUnderWay;

    void serve();
    void refuse(CallUnderWay& work);
    void ask(std::shared_ptr<CallUnderWay> work);
    void run(CallUnderWay& work);
    void runTool(CallUnderWay& work, MCPSession& on);
    void runInApp(CallUnderWay& work, MCPSession& on);
    void undoLast(CallUnderWay& work, MCPSession& on);
    void finish(CallUnderWay& work);
    MCPContext context(const CallUnderWay& work, MCPSession& on);
    SoundsByTag::Library sounds(const nlohmann::json& arguments, MCPSession& on) const;
    void see(const MCPResult& result, const Project& project);
    void endQuestion();

    SettingsStore* store;
    std::unique_ptr<QTcpServer> listener;
    std::string listenerProblem;
    std::shared_ptr<MCPSession> session;
    MCPPermissions allowed;
    MCPActivity done;
    SaidCache said;
    std::optional<Question> asking;
    std::function<void(bool)> answered; ///< goes on with the call that the question is about
    int running = 0;
    std::weak_ptr<MCPSession> lastIn; ///< where the last change was made here
    std::optional<History::Step> last;
    std::map<UUID, Video> seen; ///< as each stood when last read or changed
};

}
