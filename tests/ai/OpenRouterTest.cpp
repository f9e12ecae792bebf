#include "core/ai/OpenRouter.h"
#include "tests/ProblemOf.h"
#include "tests/ScriptedModel.h"

#include <gmock/gmock.h>

using namespace murbo;
using nlohmann::json;
using testing::HasSubstr, testing::Not;

namespace {

const Ask hello{Ask::Model::cheap,
                {{Ask::Message::Role::system, "Be brief."}, {Ask::Message::Role::user, "“Hello” \n สวัสดี"}},
                12'000,
                4'000};

std::string failure(int status, const std::string& body) {
    Served served(status, body);
    return problemOf([] { OpenRouter("sk-or-1").send(hello, "some/model"); });
}

std::string answered(const std::string& content, const std::string& usage = "{}") {
    return R"({"choices": [{"message": {"content": )" + json(content).dump() + R"(}}], "usage": )" + usage +
           "}";
}

}

TEST(OpenRouter, sendsFourMembersAndTwoHeadersAndReadsTextAndCost) {
    Served served(200, answered("The answer", R"({"cost": 0.0123})"));
    const auto answer = OpenRouter("sk-or-1").send(hello, "some/model");
    EXPECT_EQ(answer.text, "The answer");
    EXPECT_EQ(answer.cost, 0.0123);

    const auto request = served.server.request();
    EXPECT_THAT(request, testing::StartsWith("POST /api/v1/chat/completions HTTP/1.1\r\n"));
    EXPECT_THAT(request, HasSubstr("\r\nContent-Type: application/json\r\n"));
    EXPECT_THAT(request, HasSubstr("\r\nAuthorization: Bearer sk-or-1\r\n"));
    for (const char* none : {"User-Agent", "Referer", "X-Title"}) EXPECT_THAT(request, Not(HasSubstr(none)));
    EXPECT_EQ(json::parse(request.substr(request.find("\r\n\r\n"))), json::parse(R"({
        "model": "some/model", "max_tokens": 12000, "reasoning": {"max_tokens": 4000},
        "messages": [{"role": "system", "content": "Be brief."},
                     {"role": "user", "content": "“Hello” \n สวัสดี"}]})"));
    auto ask = hello;
    ask.messages.back().pictures = {"jpeg"};
    OpenRouter("k").send(ask, "m");
    const auto pictured = served.server.request();
    const auto content = json::parse(pictured.substr(pictured.find("\r\n\r\n")))["messages"][1]["content"];
    EXPECT_EQ(content[1]["image_url"]["url"], "data:image/jpeg;base64,anBlZw==");
}

TEST(OpenRouter, saysWhyNoAnswerCame) {
    const std::string unread = "OpenRouter did not answer. The answer could not be read.";
    EXPECT_EQ(failure(402, R"({"error": {"message": "Insufficient credits"}})"),
              "OpenRouter did not answer. Insufficient credits");
    EXPECT_EQ(failure(200, R"({"error": {"message": "Overloaded"}})"),
              "OpenRouter did not answer. Overloaded");
    for (const char* body : {"", "<html>", "[]", R"({"choices": []})", R"({"choices": [{"message": {}}]})",
                             R"({"choices": [{"message": {"content": ""}}]})", R"({"choices": "x"})",
                             R"({"choices": [{"message": {"content": 5}}]})"})
        EXPECT_EQ(failure(200, body), unread) << body;
    EXPECT_EQ(failure(200, std::string(10'000, '[')), unread);
    EXPECT_EQ(failure(500, answered("text all the same")), unread);
    EXPECT_EQ(problemOf([] { OpenRouter("").send(hello, "m"); }),
              "Add your OpenRouter key in Settings ▸ AI to use the AI features.");
}

TEST(OpenRouter, takesNoCostThatCannotBe) {
    for (const auto* usage : {"{}", "null", R"({"cost": -1})", R"({"cost": 1e308})", R"({"cost": "1"})"}) {
        Served served(200, answered("a", usage));
        EXPECT_EQ(OpenRouter("k").send(hello, "m").cost, 0) << usage;
    }
}

TEST(OpenRouter, carriesTheKeyNowhereElse) {
    FakeServer other([](const std::string&) { return FakeServer::reply(200, answered("stolen")); });
    Served served("HTTP/1.1 307 Moved\r\nLocation: " + other.base + "\r\nContent-Length: 0\r\n\r\n");
    EXPECT_THAT(problemOf([] { OpenRouter("k").send(hello, "m"); }), HasSubstr("could not be read"));
    EXPECT_EQ(other.request(), "");
}

TEST(OpenRouter, triesAKey) {
    struct {
        const char* key;
        int status;
        const char* body;
        const char* says;
    } cases[] = {
        {"", 200, "", "No key is saved."},
        {"abc", 200, R"({"data": {"usage": 1.5, "limit": 20}})", "The key works. Used $1.50 of $20.00."},
        {"sk-or-1", 200, R"({"data": {"limit": null}})", "The key works. Used $0.00 of no limit."},
        {"sk-or-1", 401, R"({"data": {}})",
         "OpenRouter turned the key away. Copy it again from openrouter.ai and paste it here."},
        {"abc", 200, "<html>",
         "OpenRouter turned the key away. Copy it again from openrouter.ai and paste it here. It does not "
         "start "
         "with sk-or-, so it may not be an OpenRouter key."}};
    for (const auto& each : cases) {
        Served served(each.status, each.body);
        EXPECT_EQ(OpenRouter(each.key).check(), each.says);
    }
    const Environment nobody("MURBO_OPENROUTER", "http://127.0.0.1:1");
    EXPECT_EQ(OpenRouter("abc").check(), "OpenRouter could not be reached.");
}
