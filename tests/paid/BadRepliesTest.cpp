#include "tests/paid/PaidProject.h"

using namespace murbo;

namespace {

using json = nlohmann::json;
using BadReplies = PaidProject;

/// The bytes of an answer of status 200.
std::string ok(const std::string& body) {
    return FakeServer::reply(200, body);
}

std::string repeated(const std::string& text, std::size_t count) {
    std::string all;
    for (std::size_t n = 0; n < count; ++n) all += text;
    return all;
}

constexpr const char* unread = "OpenRouter did not answer. The answer could not be read.";
constexpr const char* nothing = "Nothing in the footage matched that.";

}

TEST_F(BadReplies, areToldInWordsAndChangeNothing) {
    const auto before = projectFile();
    const std::pair<std::string, std::string> cases[] = {
        {ok(R"({"error": {"message": "The model is down"}})"),
         "OpenRouter did not answer. The model is down"},
        {ok(R"({"choices": [{"message": {"content": ""}}]})"), unread},
        {ok(R"({"choices": [{"message": {}}]})"), unread},
        {ok(R"({"choices": {}})"), unread},
        {ok(""), unread},
        {FakeServer::reply(402, R"({"error": {"message": "Insufficient credits"}})"),
         "OpenRouter did not answer. Insufficient credits"},
        {FakeServer::reply(429, R"({"error": {"message": "Slow down"}})"),
         "OpenRouter did not answer. Slow down"},
        {FakeServer::reply(500, "<html><b>Oops</b></html>", "text/html"), unread},
        {ok(repeated("[", 10'000)), unread},
    };
    for (const auto& [bytes, words] : cases) {
        model.sends(bytes);
        EXPECT_EQ(run({"--cut", package, "x"}), failure(words)) << bytes.substr(0, 200);
        EXPECT_EQ(log().back().state, "failed");
        EXPECT_EQ(log().back().error, words);
    }
    EXPECT_EQ(projectFile(), before);
}

TEST_F(BadReplies, thatBreakOffOrNeverEndAreFailures) {
    const auto cut = ok(R"({"choices": [{"message": {"content": "{}"}}]})");
    model.sends(cut.substr(0, cut.size() - 10));
    EXPECT_EQ(run({"--cut", package, "x"}).code, 1);
    model.sends(ok(R"({"choices": [{"message": {"content": ")" + std::string(100'000'000, 'x') + "\"}}]}"));
    const auto ran = run({"--cut", package, "x"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_LT(ran.out.size(), 500u);
    EXPECT_EQ(logged(), "Cut to instruction: reading, failed; Cut to instruction: reading, failed");
    EXPECT_LT(contentsOf(package / "activity.jsonl").size(), 100'000u);
}

TEST_F(BadReplies, ofAModelNameNothingThatHolds) {
    const auto before = projectFile();
    for (const std::string text :
         {"I can't do that.", "{} {}", "}{", "{", "{\"cuts\": [}", "{\"cuts\": {\"from\": \"C01.01\"}}",
          R"({"cuts": [null, 1, "C01.01", [], {"from": "C01.01"}, {"from": 1, "to": 2}]})",
          R"({"cuts": [{"from": "C01.03", "to": "C01.01"}]})",
          R"({"cuts": [{"from": "C01.01", "to": "C02.01"}]})",
          R"({"cuts": [{"from": "C04.01", "to": "C04.02"}]})",
          R"({"cuts": [{"from": "C01.99999999999999999999", "to": "C01.01"}]})",
          "{\"cuts\": [{\"from\": \"C01.01\\u0000\", \"to\": \"\\ud800\"}]}"}) {
        model.answers(json{{"read", {"C01", "C02"}}});
        model.says(text);
        EXPECT_EQ(run({"--cut", package, "x"}), failure(nothing)) << text;
    }
    model.answers(json{{"read", {"C01"}}});
    model.says("{\"cuts\": " + repeated("[", 10'000) + repeated("]", 10'000) + "}");
    EXPECT_EQ(run({"--cut", package, "x"}), failure(nothing));
    EXPECT_EQ(projectFile(), before);
}

TEST_F(BadReplies, thatAreHugeAreBounded) {
    auto cuts = json::array();
    for (int n = 0; n < 10'000; ++n) cuts.push_back({{"from", " c1.1"}, {"to", "C01.002"}});
    model.answers(json{{"read", {"C01"}}});
    model.answers(
        json{{"title", std::string(1'000'000, 'x') + "\n\x01"}, {"cuts", cuts}, {"note", "a\nb\x1b[31m"}});
    const auto ran = run({"--cut", package, "x"});
    EXPECT_EQ(ran.code, 0) << ran.out.substr(0, 500);
    EXPECT_LT(ran.out.size(), 2'000u);
    EXPECT_EQ(ran.out.find('\x1b'), ran.out.npos) << "no codes reach the terminal";
    EXPECT_LE(project().videos.back().title.size(), 500u);
    EXPECT_EQ(project().videos.back().cuts.size(), 10'000u);
}

TEST_F(BadReplies, costsThatCanNotBeCountAsNothing) {
    for (const auto* cost : {"null", "\"0.5\"", "-1", "1e308", "[]", "true"}) {
        model.sends(ok(R"({"choices": [{"message": {"content": "{}"}}], "usage": {"cost": )" +
                       std::string(cost) + "}}"));
        run({"--cut", package, "x"});
        EXPECT_EQ(log().back().cost, 0) << cost;
    }
    model.sends(ok(R"({"choices": [{"message": {"content": "{}"}}]})"));
    run({"--cut", package, "x"});
    EXPECT_EQ(log().back().cost, 0);
    model.sends(ok(R"({"choices": [{"message": {"content": "{}"}}], "usage": {"cost": NaN}})"));
    EXPECT_EQ(run({"--cut", package, "x"}), failure(unread));
    EXPECT_EQ(murboWith({"--spent", package}).out.substr(0, 14), "$0.000 in all\n");
}
