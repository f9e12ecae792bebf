#include "platform/media/MediaFile.h"
#include "tests/MadeMedia.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <chrono>
#include <thread>

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

TEST(MediaFile, tellsTheFactsOfRealFootage) {
    const std::filesystem::path folder = MURBO_FOOTAGE;
    if (!std::filesystem::exists(folder)) GTEST_SKIP() << "The real footage is not on this machine.";
    const std::tuple<const char*, double, const char*> files[] = {
        {"2021-01-15 12-00-00 blocks.mkv", 6.75, "1920x1080 60.00 60.00, 48000 2"},
        {"action-cam-29.97.mp4", 12.079, "854x480 29.97 29.97, 48000 2"},
        {"actors-battle.webm", 70.542, "798x332 24.00 24.00, 44100 2"},
        {"broken-cut-short.mkv", 2.883, "1920x1080 60.00 60.00, 48000 2"},
        {"camera-avchd-50i.mts", 0.544, "1920x1080 25.00 25.00 interlaced, 48000 2"},
        {"chapters.mp4", 1.089, "1080x720 29.97 29.97, 44100 1"},
        {"game-cave-60fps.mp4", 33.05, "480x320 60.00 60.00, 48000 2"},
        {"people-no-audio.mp4", 139.4, "768x432 10.00 10.00"},
        {"phone-vfr-portrait.mp4", 11.353, "1080x1440 10.71 7.40 variable, 44100 1"},
        {"talk-seven-people.mp4", 21, "360x288 25.00 25.00, 48000 2"},
        {"คลิปโทรศัพท์ 📱 (1).mp4", 2.548, "1080x1920 29.97 28.03 variable hdr turned 1, 44100 2"},
    };
    for (const auto& [name, length, told] : files) {
        const MediaFacts facts = MediaFile::facts(folder / name);
        EXPECT_NEAR(facts.length, length, 0.001) << name;
        ASSERT_TRUE(facts.picture) << name;
        const auto& picture = *facts.picture;
        auto text = fmt::format("{}x{} {:.2f} {:.2f}", picture.size.width, picture.size.height,
                                picture.nominalRate, picture.meanRate);
        if (picture.variableRate) text += " variable";
        if (picture.interlaced) text += " interlaced";
        if (picture.highDynamicRange) text += " hdr";
        if (picture.quarterTurns) text += fmt::format(" turned {}", picture.quarterTurns);
        if (facts.sound) text += fmt::format(", {} {}", facts.sound->rate, facts.sound->channels);
        EXPECT_EQ(text, told) << name;
    }
    EXPECT_NE(problemOf([&] { MediaFile::facts(folder / "broken-no-moov.mp4"); }).find("has no index"),
              std::string::npos);
    EXPECT_FALSE(MediaFile::facts(folder / "speech-jfk-1961.wav").picture);
    EXPECT_FALSE(MediaFile::facts(folder / "sounds" / "music.mp3").picture) << "a cover is no picture track";
}

TEST(MediaFile, aFileThatIsReplacedHasOtherFacts) {
    MURBO_NEEDS_FFMPEG();
    const auto made = [](const char* name, int seconds) {
        return made::file(name, fmt::format("-f lavfi -i sine=duration={} -c:a pcm_s16le", seconds));
    };
    const TemporaryFolder folder;
    const auto place = folder / "sound.wav";
    std::filesystem::copy_file(made("one.wav", 1), place);
    std::filesystem::copy_file(made("two.wav", 2), folder / "other.wav");
    std::this_thread::sleep_for(std::chrono::milliseconds(2100)); // from then on what is read is kept
    for (int time = 0; time < 2; ++time) EXPECT_NEAR(MediaFile::facts(place).length, 1, 0.01);
    std::filesystem::rename(folder / "other.wav", place);
    EXPECT_NEAR(MediaFile::facts(place).length, 2, 0.01);
    std::filesystem::remove(place);
    EXPECT_NE(problemOf([&] { MediaFile::facts(place); }), "");
}
