#include "core/intake/transcription/Sound.h"
#include "core/intake/transcription/Transcription.h"
#include "core/intake/transcription/Whisper.h"
#include "core/model/Source.h"
#include "platform/base/Tool.h"
#include "tests/Environment.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::HasSubstr, testing::Not;
namespace fs = std::filesystem;

namespace {

/// The real tool and the model that hears made speech, found by way of PATH and the home folder.
class RealWhisper : public testing::Test {
protected:
    void SetUp() override {
        const auto model = fs::path(MURBO_SPEECH_MODELS) / "ggml-espeak-q8_0.bin";
        if (!Tool::find("whisper-cli")) GTEST_SKIP() << "whisper-cli is not here; ./dev test builds it.";
        if (!fs::exists(model)) GTEST_SKIP() << "There is no model to listen with.";
        if (!fs::exists(speech)) GTEST_SKIP() << "There is no speech to listen to.";
        fs::create_directories(folder / ".whisper-models");
        fs::create_symlink(model, folder / ".whisper-models/ggml-large-v3-turbo.bin");
    }

    static std::vector<Line> hear(double start, double end) {
        return Transcription::lines({.path = speech}, start, end, "en", "",
                                    Whisper::on(Whisper::standardModel()))
            .lines;
    }

    static inline const fs::path speech = fs::path(MURBO_FOOTAGE) / "speech-espeak.wav";
    const TemporaryFolder folder;
    const Environment home{"HOME", folder.path};
    const Environment path{"PATH", std::string(std::getenv("PATH")) + ":" MURBO_TOOLS};
};

/// The line that starts nearest to a time.
const Line& near(const std::vector<Line>& lines, double start) {
    return *std::min_element(lines.begin(), lines.end(), [&](const Line& one, const Line& other) {
        return std::abs(one.start - start) < std::abs(other.start - start);
    });
}

void expectSaid(const std::vector<Line>& lines, double start, double end, const char* word) {
    ASSERT_FALSE(lines.empty());
    const auto& line = near(lines, start);
    EXPECT_NEAR(line.start, start, 0.15) << word;
    EXPECT_NEAR(line.end, end, 0.15) << word;
    EXPECT_THAT(line.text, HasSubstr(word));
}

}

TEST(Transcription, putsLinesOnTheSourcesTimeAndRemovesTheSound) {
    const TemporaryFolder folder, temporary;
    const Environment variable("TMPDIR", temporary.path);
    const auto file = folder.file("a.wav", Sound::header(320000) + std::string(320000, '\0'));
    const Transcriber engine{
        "fake", true, [&](const auto& wav, const auto& language, const auto& hint, auto) {
            EXPECT_EQ(fs::file_size(wav), 44u + 3 * 32000);
            EXPECT_EQ(language + hint,
                      "th"
                      "names");
            return Transcribed{{{0.5, 1, "a"}, {2.5, 3.5, "b"}, {3.25, 4, "c"}}, 0.5, "asked"};
        }};
    const auto result = Transcription::lines({.path = file}, 2, 5, "th", "names", engine);
    EXPECT_EQ(result.cost, 0.5);
    EXPECT_EQ(result.request, "asked");
    ASSERT_EQ(result.lines.size(), 3u);
    const std::tuple<double, double, std::string> expected[] = {{2.5, 3, "a"}, {4.5, 5, "b"}, {5.25, 5, "c"}};
    for (std::size_t at = 0; at < 3; ++at) {
        const auto& line = result.lines[at];
        EXPECT_EQ(std::tuple(line.start, line.end, line.text), expected[at]);
        EXPECT_FALSE(line.gone.has_value());
    }
    EXPECT_NE(result.lines[0].id, result.lines[1].id);

    const Transcriber failing{"fake", false, [](const auto&, const auto&, const auto&, auto) -> Transcribed {
                                  throw Problem("It failed.");
                              }};
    EXPECT_THROW(Transcription::lines({.path = file}, 2, 5, "th", "", failing), Problem);
    EXPECT_EQ(entriesIn(temporary.path), 0);
}

TEST(Transcription, estimatesWhatScribeCosts) {
    EXPECT_DOUBLE_EQ(Transcription::scribeCost(3600), 0.4);
    EXPECT_DOUBLE_EQ(Transcription::scribeCost(90), 0.01);
}

TEST_F(RealWhisper, hearsAStretchOnTheSourcesOwnTime) {
    const auto lines = hear(8, 18);
    expectSaid(lines, 9.00, 10.76, "seven eight nine");
    expectSaid(lines, 13.00, 14.84, "coffee in the town");
    EXPECT_NEAR(near(lines, 17).start, 17, 0.15);
    for (const auto& line : lines) {
        EXPECT_THAT(line.text, Not(HasSubstr("welcome")));
        EXPECT_LE(line.end, 18);
    }
    EXPECT_TRUE(hear(25, 60).empty()) << "past the end nothing is said";
}

TEST_F(RealWhisper, refusesAModelThatIsNone) {
    const TemporaryFolder temporary;
    const Environment variable("TMPDIR", temporary.path);
    EXPECT_EQ(problemOf([] { Transcription::lines({.path = speech}, 0, 2, "en", "", Whisper::on(speech)); }),
              "whisper-cli stopped with an error. error: failed to initialize whisper context");
    EXPECT_EQ(entriesIn(temporary.path), 0);
}
