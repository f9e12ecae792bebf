#include "app/mcp/MCPConnection.h"
#include "app/mcp/MCPHost.h"
#include "tests/host/HeldSession.h"

#include <QCoreApplication>
#include <future>

#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace murbo;
using testing::HasSubstr, testing::StartsWith;

namespace {

/// A client at the other end of a connection, in the words of the wire.
class Client {
public:
    explicit Client(std::uint16_t port) : connection(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const timeval patience{10, 0};
        setsockopt(connection, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        EXPECT_EQ(connect(connection, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    }
    Client(const Client&) = delete;
    ~Client() { leave(); }

    void leave() {
        if (connection >= 0) close(std::exchange(connection, -1));
    }
    void say(const std::string& bytes) const {
        for (std::size_t at = 0; at < bytes.size();) {
            const auto sent = send(connection, bytes.data() + at, bytes.size() - at, MSG_NOSIGNAL);
            if (sent <= 0) return;
            at += static_cast<std::size_t>(sent);
        }
    }
    void sayNoMore() const { shutdown(connection, SHUT_WR); }
    /// Whether the other side has ended it, with nothing left to hear.
    bool isOver() const {
        char byte;
        const auto count = recv(connection, &byte, 1, MSG_PEEK | MSG_DONTWAIT);
        return count == 0 || (count < 0 && errno != EAGAIN);
    }

    /// All that comes until the other side ends.
    std::string hear() const {
        std::string text;
        std::array<char, 65536> bytes;
        for (ssize_t count; (count = recv(connection, bytes.data(), bytes.size(), 0)) > 0;)
            text.append(bytes.data(), static_cast<std::size_t>(count));
        return text;
    }

private:
    int connection;
};

class MCPConnectionTest : public testing::Test {
protected:
    MCPConnectionTest() {
        host.setSession(session);
        host.start(0);
    }

    /// Has it call for a change that the owner is asked about. Whether the owner is.
    bool awaitsTheOwner(const Client& app) {
        auto permissions = host.permissions();
        permissions.use(MCPPermissions::Preset::askBeforeChanges);
        host.setPermissions(permissions);
        app.say(call("rename_video", R"({"video": "V1", "title": "Second"})"));
        return until([&] { return host.question().has_value(); });
    }
    static std::string request(const std::string& body, const std::string& head = "Host: localhost:17172") {
        return "POST /mcp HTTP/1.1\r\n" + head + "\r\nContent-Length: " + std::to_string(body.size()) +
               "\r\n\r\n" + body;
    }
    static std::string call(const char* tool, const char* arguments) {
        return request(std::string(R"({"id": 0, "method": "tools/call", "params": {"name": ")") + tool +
                       R"(", "arguments": )" + arguments + "}}");
    }

    /// What a client does, on a thread of its own while the host goes on.
    template <class Deeds>
    auto doing(const Deeds& deeds) {
        auto done = std::async(std::launch::async, deeds);
        while (done.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready)
            QCoreApplication::processEvents();
        return done.get();
    }
    std::string answer(const std::string& bytes) {
        return doing([&] {
            const Client client(host.port());
            client.say(bytes);
            return client.hear();
        });
    }
    /// Lets the host go on until something holds, for so long as a test may take.
    template <class Condition>
    bool until(const Condition& holds) {
        for (int turn = 0; turn < 5000 && !holds(); ++turn) {
            QCoreApplication::processEvents();
            usleep(1000);
        }
        return holds();
    }
    qsizetype connections() const { return host.findChildren<MCPConnection*>().size(); }

    std::shared_ptr<HeldSession> session = std::make_shared<HeldSession>();
    MCPHost host{nullptr};
};

constexpr auto ping = R"({"id": 0, "method": "ping"})";

}

TEST_F(MCPConnectionTest, eachRequestGetsItsOwnKindOfAnswer) {
    EXPECT_THAT(answer(request(ping)),
                testing::AllOf(StartsWith("HTTP/1.1 200 OK\r\n"), HasSubstr("\"result\":{}")));
    EXPECT_THAT(answer(request(R"({"method": "notifications/initialized"})")),
                testing::AllOf(StartsWith("HTTP/1.1 202 Accepted\r\n"), testing::EndsWith("\r\n\r\n")));
    EXPECT_THAT(answer(request("[]")), StartsWith("HTTP/1.1 400 Bad Request\r\n"));
    EXPECT_THAT(answer("GET / HTTP/1.1\r\nHost: 127.0.0.1\r\n\r\n"), StartsWith("HTTP/1.1 405 "));
    EXPECT_THAT(answer(request(ping, "Host: evil.example")), StartsWith("HTTP/1.1 403 "));
    EXPECT_THAT(answer(request(ping, "Host: localhost\r\nOrigin: null")), StartsWith("HTTP/1.1 403 "));
    EXPECT_THAT(answer(request(ping) + std::string(3 << 20, 'x')), StartsWith("HTTP/1.1 200 "))
        << "surplus bytes cost nobody an answer";
    EXPECT_EQ(answer("POST / HTTP/1.1\r\nHost: localhost\r\nContent-Length: 99999999999\r\n\r\n"), "")
        << "nobody waits for as much";
    EXPECT_TRUE(until([&] { return connections() == 0; }));
}

TEST_F(MCPConnectionTest, aRequestMayComeInAnyPieces) {
    const auto whole = call("rename_video", R"({"video": "V1", "title": "Second"})");
    const auto heard = doing([&] {
        const Client client(host.port());
        for (const char byte : whole) {
            client.say(std::string(1, byte));
            usleep(100);
        }
        client.sayNoMore();
        return client.hear();
    });
    EXPECT_THAT(heard, HasSubstr("V1 is “Second”."));
    EXPECT_EQ(session->steps.past().size(), 1u) << "answered once";
    EXPECT_EQ(doing([&] {
                  const Client client(host.port());
                  client.say(whole.substr(0, whole.size() - 1));
                  client.sayNoMore();
                  return client.hear();
              }),
              "")
        << "a request that never gets whole is not answered";
}

TEST_F(MCPConnectionTest, manySilentOnesKeepNobodyOut) {
    Client asking(host.port());
    ASSERT_TRUE(awaitsTheOwner(asking));
    std::vector<std::unique_ptr<Client>> silent;
    for (int count = 0; count < 300; ++count) {
        silent.push_back(std::make_unique<Client>(host.port()));
        QCoreApplication::processEvents();
    }
    EXPECT_THAT(answer(request(ping)), StartsWith("HTTP/1.1 200 "));
    EXPECT_TRUE(host.question()) << "who has asked stays";
    const auto oldest = 302 - std::size_t(MCPConnection::maxConnections);
    for (std::size_t at = 0; at < silent.size(); ++at)
        ASSERT_EQ(silent[at]->isOver(), at < oldest) << at << ": the oldest go, and no more of them";
    silent.clear();
    asking.leave();
    EXPECT_TRUE(until([&] { return connections() == 0; }));
}

TEST_F(MCPConnectionTest, anAppThatLeavesTakesItsQuestionAlong) {
    Client client(host.port());
    ASSERT_TRUE(awaitsTheOwner(client));
    EXPECT_THAT(answer(request(ping)), StartsWith("HTTP/1.1 200 ")) << "no other one waits";
    client.leave();
    EXPECT_TRUE(until([&] { return !host.question(); }));
    EXPECT_EQ(host.activity().entries().back().said, "The app left before the owner answered.");
    EXPECT_TRUE(session->steps.past().empty());
}
