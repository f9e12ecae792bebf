#include "tests/paid/PaidProject.h"

using namespace murbo;

namespace {

using json = nlohmann::json;
using BadReplies = PaidProject;

/// The bytes of an answer of status 200.
std::string ok(const std::string& body) {
    return FakeServer::reply(200, body);
}

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
