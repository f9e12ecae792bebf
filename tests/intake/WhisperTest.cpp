#include "core/intake/transcription/Sound.h"
#include "core/intake/transcription/Whisper.h"
#include "platform/base/Cancelled.h"
#include "tests/Environment.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <thread>

#include <gmock/gmock.h>

using namespace murbo;
using namespace std::chrono_literals;
using testing::HasSubstr, testing::StartsWith;
namespace fs = std::filesystem;

namespace {

/// A home folder with a model that is none and a tool of the test's own that pretends to listen.
class FakeWhisper : public testing::Test {
protected:
    FakeWhisper() { folder.file(".whisper-models/ggml-large-v3-turbo.bin"); }

    /// The tool's script; $stem is what it was told by -of.
    void script(const std::string& lines) const {
        const auto file =
            folder.file(".local/bin/fake-whisper",
                        "#!/bin/sh\nprintf '%s|' \"$@\" >\"$HOME/said\"\nstem=${12}\n" + lines + "\n");
        fs::permissions(file, fs::perms::owner_all);
    }

    Transcribed transcribe(const std::string& hint = "", std::stop_token stop = {}) const {
        return Whisper::on("/some model.bin", "fake-whisper").transcribe(wav, "th", hint, stop);
    }

    std::string failure() const {
        return problemOf([&] { transcribe(); });
    }

    /// Whether nothing but the sound is left.
    bool isTidy() const { return entriesIn(folder / "sounds") == 1; }

    const TemporaryFolder folder;
    const Environment home{"HOME", folder.path};
    const fs::path wav = folder.file("sounds/a b.wav", Sound::header(32000) + std::string(32000, '\0'));
};

}

TEST(Whisper, readsTheLinesThatSaySomething) {
    const auto json = [](const std::string& items) {
        return R"({"model": {"x": null}, "transcription": [)" + items + "]}";
    };
    const auto item = [](const char* from, const char* to, const std::string& text) {
        return std::string(R"({"timestamps": {}, "offsets": {"from": )") + from + R"(, "to": )" + to +
               R"(}, "text": ")" + text + "\"}";
    };
    EXPECT_TRUE(Whisper::lines(json("")).empty());
    EXPECT_EQ(
        Whisper::lines(json(item("0", "1500", " hello ") + "," + item("1500", "1500", " \\n\\t ") + "," +
                            item("2000", "2250.0",
                                 "\xE0\xB8"
                                 "\xE0\xB8\xA3\xE0") +
                            "," + item("3000", "4000", " \xEF\xBF\xBD\\ufffd "))),
        (std::vector<HeardLine>{{0, 1.5, "hello"}, {2, 2.25, "ร"}}));
    for (const std::string& broken :
         {std::string(), std::string("{}"), std::string("[]"), json(item("0", "1.5", "a")),
          json(item("\"0\"", "1", "a")), json(R"({"text": "a"})"), json(item("0", "1", "a")).substr(0, 60),
          std::string(100'000, '[')})
        EXPECT_THROW(Whisper::lines(broken), Problem) << broken.substr(0, 80);
}

TEST_F(FakeWhisper, isToldAllInItsOrderAndLeavesNothing) {
    script(
        R"(echo '{"transcription": [{"offsets": {"from": 100, "to": 900}, "text": " so "}]}' >"$stem.json")");
    EXPECT_FALSE(Whisper::on("/some model.bin").paid);
    EXPECT_EQ(Whisper::on("/some model.bin").name, Whisper::name);
    const auto heard = transcribe("Dwex, a b");
    EXPECT_EQ(heard.lines, (std::vector<HeardLine>{{0.1, 0.9, "so"}}));
    EXPECT_EQ(heard.cost, 0);
    const auto stem = fs::path(wav).replace_extension().string();
    EXPECT_EQ(heard.request, "fake-whisper -m /some model.bin -f " + stem + ".wav -l th -np -ml 60 -oj -of " +
                                 stem + " --prompt Dwex, a b");
    EXPECT_EQ(
        contentsOf(folder / "said"),
        "-m|/some model.bin|-f|" + stem + ".wav|-l|th|-np|-ml|60|-oj|-of|" + stem + "|--prompt|Dwex, a b|");
    EXPECT_TRUE(isTidy());
    EXPECT_THAT(transcribe().request, testing::Not(HasSubstr("--prompt")));
}

TEST_F(FakeWhisper, failsInWordsAndLeavesNothing) {
    script("echo 'error: no such model' >&2; echo half >\"$stem.json\"; exit 3");
    EXPECT_EQ(failure(), "fake-whisper stopped with an error. error: no such model");
    EXPECT_TRUE(isTidy());
    script("echo 'open: failed to open' >&2");
    EXPECT_THAT(failure(), testing::AllOf(StartsWith("fake-whisper gave no transcript that can be read. "),
                                          HasSubstr("open: failed to open")));
    for (const char* nonsense :
         {"", "nonsense", "{\\\"transcription\\\": [{\\\"offsets", "{\\\"transcription\\\": 5}"}) {
        script(std::string("printf \"") + nonsense + "\" >\"$stem.json\"");
        EXPECT_THAT(failure(), StartsWith("fake-whisper gave no transcript that can be read. ")) << nonsense;
        EXPECT_TRUE(isTidy());
    }
}

TEST_F(FakeWhisper, thatHangsEndsWhenItIsCancelled) {
    script("echo half >\"$stem.json\"; sleep 600");
    std::stop_source stop;
    std::jthread asking([&] {
        std::this_thread::sleep_for(200ms);
        stop.request_stop();
    });
    EXPECT_THROW(transcribe("", stop.get_token()), Cancelled);
    EXPECT_TRUE(isTidy());
}

TEST_F(FakeWhisper, isNotRunForSilenceWithoutLength) {
    script("exit 1");
    folder.file("sounds/a b.wav", Sound::header(0));
    EXPECT_TRUE(transcribe().lines.empty());
}

TEST_F(FakeWhisper, saysWhatIsMissing) {
    script("exit 1");
    EXPECT_EQ(Whisper::missing("fake-whisper"), std::nullopt);
    fs::remove_all(folder / ".whisper-models");
    EXPECT_THAT(
        failure(),
        testing::AllOf(StartsWith("whisper's model is missing. In Terminal: mkdir -p ~/.whisper-models && "
                                  "curl -L -o ~/.whisper-models/ggml-large-v3-turbo.bin https://"),
                       testing::EndsWith(".bin")));
    fs::remove_all(folder / ".local");
    EXPECT_EQ(failure(), "whisper is not installed. In Terminal: brew install whisper-cpp");
}
