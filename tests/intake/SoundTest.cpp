#include "core/intake/transcription/Sound.h"
#include "platform/base/Cancelled.h"
#include "platform/media/MediaFile.h"
#include "tests/Environment.h"
#include "tests/FullDisk.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace murbo;
namespace fs = std::filesystem;

namespace {

const fs::path footage = MURBO_FOOTAGE;

/// A made WAV file at the engines' own rate: a ramp that no two seconds share.
fs::path ramp(const TemporaryFolder& folder, int seconds) {
    auto bytes = Sound::header(seconds * Sound::speechBytesPerSecond);
    for (int at = 0; at < seconds * Sound::speechRate; ++at) {
        const auto value = static_cast<std::int16_t>(at / 16 - 8000);
        bytes.append(reinterpret_cast<const char*>(&value), 2);
    }
    return folder.file("ramp.wav", bytes);
}

std::string read(const TemporaryFile& wav) {
    return contentsOf(wav.path());
}

std::int16_t sample(const std::string& wav, std::size_t at) {
    std::int16_t value;
    std::memcpy(&value, wav.data() + 44 + 2 * at, 2);
    return value;
}

std::string failure(const fs::path& file) {
    return problemOf([&] { Sound::wav(file, 0, 1); });
}

}

TEST(SoundFile, hasTheOneFormThatEnginesTake) {
    EXPECT_EQ(
        Sound::header(0x01020304),
        std::string(
            "RIFF\x28\x03\x02\x01WAVEfmt \x10\0\0\0\1\0\1\0\x80\x3E\0\0\0\x7D\0\0\2\0\x10\0data\4\3\2\1",
            44));
    EXPECT_NO_THROW(Sound::header(4'294'967'259));
    EXPECT_THROW(Sound::header(4'294'967'260), Problem);
}

TEST(SoundFile, holdsTheStretchToTheSample) {
    const TemporaryFolder folder;
    const auto source = ramp(folder, 9);
    const auto wav = read(Sound::wav(source, 1.5, 7.25));
    ASSERT_EQ(wav.size(), 44u + 2 * 92000);
    EXPECT_EQ(wav.substr(0, 44), Sound::header(2 * 92000));
    for (std::size_t at : {0, 1, 30000, 63999, 64000, 91999})
        EXPECT_NEAR(sample(wav, at), (24000 + int(at)) / 16 - 8000, 1) << at;
    // It ends where the sound ends.
    EXPECT_EQ(read(Sound::wav(source, 8, 60)).size(), 44u + 32000);
    EXPECT_EQ(read(Sound::wav(source, 15, 60)), Sound::header(0));
    EXPECT_EQ(read(Sound::wav(source, 1, 0.5)), Sound::header(0));
    // What says that it holds more than it does ends where its sound ends.
    const auto claims = folder.file("claims.wav", Sound::header(160'000) + std::string(100'000, '\1'));
    const auto held = read(Sound::wav(claims, 1, 5));
    EXPECT_EQ(held.size(), 44u + 68'000);
    EXPECT_EQ(held.substr(0, 44), Sound::header(68'000));
    // Whatever times a project holds.
    EXPECT_EQ(read(Sound::wav(source, 5e300, 6e300)), Sound::header(0));
    for (const double start : {-1e6, -5e14, -5e300})
        EXPECT_THROW(Sound::wav(source, start, 5e14), Problem) << start;
}

TEST(SoundFile, namesTheFileThatHasNoneOrCannotBeRead) {
    if (!fs::exists(footage)) GTEST_SKIP() << "There is no footage to try it on.";
    EXPECT_EQ(failure(footage / "people-no-audio.mp4"), "people-no-audio.mp4 has no sound to transcribe.");
    EXPECT_EQ(failure(footage / "broken-no-moov.mp4"), "The sound of broken-no-moov.mp4 could not be read.");
    EXPECT_EQ(failure(footage / "gone.mp4"), "The sound of gone.mp4 could not be read.");
    EXPECT_EQ(failure(footage / "README.md"), "The sound of README.md could not be read.");
    const auto held = read(Sound::wav(footage / "broken-cut-short.mkv", 0, 1e4));
    EXPECT_GT(held.size(), 44u + 32'000);
    EXPECT_EQ(held.substr(0, 44), Sound::header(static_cast<std::int64_t>(held.size()) - 44));
}

TEST(SoundFile, leavesNothingWhenStoppedOrWhenTheDiskIsFull) {
    const TemporaryFolder folder, temporary;
    const auto source = ramp(folder, 9);
    const Environment variable("TMPDIR", temporary.path);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THROW(Sound::wav(source, 0, 9, stop.get_token()), Cancelled);
    {
        const FullDisk disk(200'000);
        EXPECT_EQ(failure(source), "");
        EXPECT_THROW(Sound::wav(source, 0, 9), Problem);
    }
    EXPECT_EQ(entriesIn(temporary.path), 0);
}
