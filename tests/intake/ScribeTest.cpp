#include "core/intake/transcription/Scribe.h"
#include "core/intake/transcription/Sound.h"
#include "platform/base/Cancelled.h"
#include "platform/base/Data.h"
#include "tests/FakeServer.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace murbo;
using namespace std::chrono_literals;
using testing::HasSubstr, testing::StartsWith;

namespace {

/// A server that has one answer, and the engine that asks it about one second of sound.
struct Asked {
    explicit Asked(const std::string& bytes) : server([=](const std::string&) { return bytes; }) {}
    Asked(int status, const std::string& body) : Asked(FakeServer::reply(status, body)) {}

    Transcribed transcribe(std::stop_token stop = {}, const std::string& key = "sk-or-key") {
        const auto engine = Scribe::with(key, "some/model", {server.base, 300ms});
        return engine.transcribe(wav, "th", "a hint", stop);
    }

    std::string failure() {
        return problemOf([&] { transcribe(); });
    }

    TemporaryFolder folder;
    std::filesystem::path wav = folder.file("a.wav", Sound::header(32000) + std::string(32000, '\1'));
    FakeServer server;
};

const std::string unable = "Scribe could not transcribe this. ";
const std::string noWords = unable + "No timed words came back.";

}

TEST(Scribe, sendsTheSoundAndReadsTheWords) {
    Asked asked(
        200,
        R"({"words": [{"word": "hello", "start": 0.1, "end": 0.4}, {"word": 5, "text": "you", "start": 0.5,
        "end": 0.75}, {"text": "late", "start": 3, "end": 3.5}], "usage": {"cost": 0.0025}, "text": "ignored"})");
    EXPECT_TRUE(Scribe::with("key").paid);
    EXPECT_EQ(Scribe::with("key").name, Scribe::name);
    const auto heard = asked.transcribe();
    EXPECT_EQ(heard.lines, (std::vector<HeardLine>{{0.1, 0.75, "hello you"}, {3, 3.5, "late"}}));
    EXPECT_EQ(heard.cost, 0.0025);
    EXPECT_EQ(heard.request, "some/model, language th, 1 s of sound");

    const auto request = asked.server.request();
    EXPECT_THAT(request, StartsWith("POST /api/v1/audio/transcriptions HTTP/1.1\r\n"));
    EXPECT_THAT(request, HasSubstr("\r\nAuthorization: Bearer sk-or-key\r\n"));
    EXPECT_THAT(request, HasSubstr("\r\nContent-Type: application/json\r\n"));
    const auto body = nlohmann::json::parse(request.substr(request.find("\r\n\r\n")));
    const std::string sound = body["input_audio"]["data"];
    EXPECT_EQ(Data::parse(sound)->bytes, Sound::header(32000) + std::string(32000, '\1'));
    const auto expected = nlohmann::json{{"model", "some/model"},
                                         {"language", "th"},
                                         {"response_format", "verbose_json"},
                                         {"timestamp_granularities", {"word"}},
                                         {"input_audio", {{"data", sound}, {"format", "wav"}}}};
    EXPECT_EQ(body, expected);
}

TEST(Scribe, takesOutOfAReplyWhatHolds) {
    Asked asked(200, R"({"words": [{"word": "c", "start": 0.6, "end": 0.5}, 7, {"word": "no end", "start": 1},
        {"start": 1, "end": 2}, {"word": "a", "start": 0, "end": 0.2}, {"word": "b", "start": "0", "end": 1},
        {"word": " ", "start": 0.3, "end": 0.4}], "usage": {"cost": "much"}})");
    const auto heard = asked.transcribe();
    EXPECT_EQ(heard.lines, (std::vector<HeardLine>{{0, 0.6, "a c"}})) << "in the order of their times";
    EXPECT_EQ(heard.cost, 0);
}

TEST(Scribe, tellsWhyItCouldNot) {
    EXPECT_EQ(Asked(402, R"({"error": {"message": "Insufficient credits", "code": 402}})").failure(),
              unable + "Insufficient credits");
    EXPECT_EQ(Asked(500, R"({"words": [{"word": "a", "start": 0, "end": 1}]})").failure(), noWords);
    for (const char* body : {"", "<html><body>Welcome</body></html>", "[]", "null", R"({"words": {}})",
                             R"({"words": []})", R"({"words": [{"word": "a"}]})", R"({"error": "text"})",
                             R"({"words": [{"word": "a",)", R"({"text": "no times"})"})
        EXPECT_EQ(Asked(200, body).failure(), noWords) << body;
    EXPECT_EQ(Asked(200, std::string(1'000'000, '[')).failure(), noWords);
}

TEST(Scribe, endsWhenTheConnectionStallsOrItIsCancelled) {
    Asked asked("");
    EXPECT_EQ(asked.failure(), "127.0.0.1 did not answer in time.");
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(asked.transcribe(stop.get_token()), Cancelled);
}

TEST(Scribe, asksNobodyWithoutAKeyOrInTheOpen) {
    Asked asked(200, "");
    EXPECT_THROW(asked.transcribe({}, ""), Problem);
    EXPECT_EQ(asked.server.request(), "");
    const auto open = Scribe::with("key", "model", {"http://example.org"});
    EXPECT_THROW(open.transcribe(asked.wav, "th", "", {}), Problem);
}

TEST(Scribe, makesLinesOfWords) {
    using Lines = std::vector<HeardLine>;
    const std::pair<Lines, Lines> cases[] = {
        {{}, {}},
        {{{0, 0.4, "A"}, {0.8, 1.0, "B"}}, {{0, 1.0, "A B"}}},
        {{{0, 0.4, "A"}, {1.0, 1.2, "B"}}, {{0, 0.4, "A"}, {1.0, 1.2, "B"}}},
        {{{0, 6.0, "long"}, {6.25, 6.5, "next"}}, {{0, 6.0, "long"}, {6.25, 6.5, "next"}}},
        {{{0, 6.0, "long"}, {6.125, 6.5, "next"}}, {{0, 6.5, "long next"}}},
        {{{0, 8.5, "long"}, {8.5, 9.0, "nine"}}, {{0, 8.5, "long"}, {8.5, 9.0, "nine"}}},
        {{{0, 1, " a "}, {1, 2, " b"}, {2, 3, "c"}}, {{0, 3, "a b c"}}},
        {{{0, 1, "สวัส"}, {1, 2, "ดี"}, {2, 3, "ok"}, {3, 4, "日本"}}, {{0, 4, "สวัสดีok日本"}}},
        {{{0, 1, "\n"}, {1, 2, "\t\n a\n"}}, {{1, 2, "\n a\n"}}},
    };
    for (const auto& [words, lines] : cases) EXPECT_EQ(Scribe::lines(words), lines);
}
