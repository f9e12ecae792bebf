#include "platform/base/Cancelled.h"
#include "platform/net/Http.h"
#include "tests/Environment.h"
#include "tests/FakeServer.h"
#include "tests/ProblemOf.h"

#include <gmock/gmock.h>

using namespace murbo;
using namespace std::chrono_literals;
using testing::HasSubstr, testing::Not, testing::StartsWith;
using Clock = std::chrono::steady_clock;

namespace {

std::string failure(const Http::Outgoing& request) {
    return problemOf([&] { Http::send(request); });
}

/// Why nothing came from a server that answers with these bytes.
std::string failureOn(const std::string& bytes, std::size_t max = 1 << 20) {
    FakeServer server([&](const std::string&) { return bytes; });
    return failure({.url = server.base, .maxBytes = max});
}

}

TEST(Http, sendsOnceAndGivesBackWhatCame) {
    FakeServer server([](const std::string&) { return FakeServer::reply(418, "short and stout"); });
    Http::Outgoing request;
    request.url = server.base + "/api/v1/key";
    request.headers = {"Authorization: Bearer secret"};
    auto reply = Http::send(request);
    EXPECT_EQ(reply.status, 418);
    EXPECT_EQ(reply.body, "short and stout");
    EXPECT_THAT(server.request(), StartsWith("GET /api/v1/key HTTP/1.1\r\n"));
    EXPECT_THAT(server.request(), HasSubstr("\r\nAuthorization: Bearer secret\r\n"));
    EXPECT_THAT(server.request(), HasSubstr("\r\nAccept-Encoding: ")) << "answers are long";

    request.body = std::string(3'000'000, 'b') + '\0' + "end";
    EXPECT_EQ(Http::send(request).status, 418);
    EXPECT_THAT(server.request(), StartsWith("POST "));
    EXPECT_THAT(server.request(), Not(HasSubstr("Expect:")));
    EXPECT_TRUE(server.request().ends_with(request.body));
}

TEST(Http, goesOnlyWhereNobodyCanListen) {
    for (const char* fit : {"https://openrouter.ai/api", "https://127.0.0.1:1/", "http://127.0.0.1:17172/mcp",
                            "http://localhost/", "http://[::1]:80/"})
        EXPECT_TRUE(Http::mayGoTo(fit)) << fit;
    for (const char* unfit :
         {"", "openrouter.ai", "localhost:17172/mcp", "127.0.0.1:17172/mcp", "http://openrouter.ai/",
          "http://127.0.0.1@example.org/", "http://127.0.0.1.example.org/", "http://localhost.example.org/",
          "file:///etc/passwd", "ftp://127.0.0.1/", "gopher://127.0.0.1/",
          "http://127.0.0.1:80 .example.org/", "https://", "http://0x7f.example/", "http://[::2]/"})
        EXPECT_FALSE(Http::mayGoTo(unfit)) << unfit;
    EXPECT_EQ(failure({.url = "http://example.org/"}),
              "Nothing is sent to http://example.org/: it is no HTTPS address.");
}

TEST(Http, goesAroundAProxyToThisMachineAlone) {
    const Environment proxy("http_proxy", "http://127.0.0.1:1");
    FakeServer server([](const std::string&) { return FakeServer::reply(200, "here"); });
    EXPECT_EQ(Http::send({.url = server.base}).body, "here");
    const Environment other("https_proxy", server.base);
    failure({.url = "https://elsewhere.invalid/"});
    EXPECT_THAT(server.request(), StartsWith("CONNECT elsewhere.invalid:443 "))
        << "to all others it is asked";
}

TEST(Http, followsNobodyElsewhere) {
    FakeServer server([](const std::string&) {
        return "HTTP/1.1 302 Found\r\nLocation: /stolen\r\nContent-Length: 0\r\nConnection: close\r\n\r\n";
    });
    EXPECT_EQ(Http::send({.url = server.base + "/here"}).status, 302);
    EXPECT_THAT(server.request(), StartsWith("GET /here"));
}

TEST(Http, takesAnAnswerHoweverItIsPacked) {
    const std::string packed("\x1f\x8b\x08\0\0\0\0\0\2\xff\xcb\x48\xcd\xc9\xc9\7\0\x86\xa6\x10\x36\5\0\0\0",
                             25);
    const auto head = [](const std::string& more) {
        return "HTTP/1.1 200 OK\r\n" + more + "Connection: close\r\n\r\n";
    };
    struct Case {
        std::string bytes;
        int status;
        std::string body;
    };
    for (const auto& [bytes, status, body] :
         {Case{head("Content-Encoding: gzip\r\nContent-Length: 25\r\n") + packed, 200, "hello"},
          Case{head("Transfer-Encoding: chunked\r\n") + "3\r\nhel\r\n2\r\nlo\r\n0\r\n\r\n", 200, "hello"},
          Case{head("") + "until the end", 200, "until the end"}, Case{FakeServer::reply(204, ""), 204, ""},
          Case{FakeServer::reply(500, std::string("a\0b", 3)), 500, std::string("a\0b", 3)}}) {
        FakeServer server([&](const std::string&) { return bytes; });
        const auto reply = Http::send({.url = server.base, .headers = {"One: 1", "Two: 2"}});
        EXPECT_EQ(reply.status, status) << bytes;
        EXPECT_EQ(reply.body, body) << bytes;
        EXPECT_THAT(server.request(), HasSubstr("\r\nOne: 1\r\nTwo: 2\r\n"));
    }
    EXPECT_EQ(failureOn(head("Content-Encoding: gzip\r\nContent-Length: 25\r\n") + packed, 4),
              "127.0.0.1 sent too long an answer.")
        << "counted unpacked";
}

TEST(Http, asksNobodyOnceItIsStopped) {
    FakeServer server([](const std::string&) { return FakeServer::reply(200, ""); });
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(Http::send({.url = server.base}, stop.get_token()), Cancelled);
    EXPECT_EQ(server.request(), "");
}

TEST(Http, refusesAHeaderThatSmugglesInAnother) {
    EXPECT_EQ(failure({.url = "http://127.0.0.1:1/", .headers = {"Authorization: Bearer a\r\nHost: b"}}),
              "A request's header can't hold a line break.");
}

TEST(Http, failsInWords) {
    std::string closed;
    {
        FakeServer gone([](const std::string&) { return ""; });
        closed = gone.base;
    }
    EXPECT_THAT(failure({.url = closed}), StartsWith("127.0.0.1 could not be reached: "));
    EXPECT_THAT(failure({.url = "https://nowhere.invalid/"}),
                StartsWith("nowhere.invalid could not be reached: "));

    for (const char* bytes :
         {"\x01\x02 nonsense\r\n\r\n", "HTTP/1.1 200 OK\r\nContent-Length: 500\r\n\r\nhalf"})
        EXPECT_THAT(failureOn(bytes), StartsWith("127.0.0.1 could not be reached: ")) << bytes;
    EXPECT_EQ(failureOn(FakeServer::reply(200, std::string(100'000, 'x')), 50'000),
              "127.0.0.1 sent too long an answer.");
    EXPECT_EQ(failureOn(FakeServer::reply(200, std::string(50'000, 'x')), 50'000), "");
}

TEST(Http, givesUpOnAServerThatFallsSilentButNotOnASlowOne) {
    FakeServer silent([](const std::string&) { return ""; });
    const auto started = Clock::now();
    EXPECT_EQ(failure({.url = silent.base, .timeout = 300ms}), "127.0.0.1 did not answer in time.");
    EXPECT_LT(Clock::now() - started, 3s);

    FakeServer slow([](const std::string&) {
        std::this_thread::sleep_for(300ms);
        return FakeServer::reply(200, "late");
    });
    EXPECT_EQ(Http::send({.url = slow.base, .timeout = 5s}).body, "late");
    const std::string slowly(4'000, 'x');
    FakeServer drops([&](const std::string&) { return FakeServer::reply(200, slowly); }, 3, 600ms);
    EXPECT_EQ(Http::send({.url = drops.base, .timeout = 1500ms}).body, slowly) << "pauses don't add up";
    EXPECT_EQ(failure({.url = drops.base, .timeout = 1500ms, .longest = 700ms}),
              "127.0.0.1 did not answer in time.");
}

TEST(Http, stopsAtOnceWhenAskedTo) {
    FakeServer silent([](const std::string&) { return ""; });
    std::stop_source stop;
    std::jthread asking([&] {
        std::this_thread::sleep_for(100ms);
        stop.request_stop();
    });
    const auto started = Clock::now();
    EXPECT_THROW(Http::send({.url = silent.base}, stop.get_token()), Cancelled);
    EXPECT_LT(Clock::now() - started, 2s);
}
