#include "core/intake/Loudness.h"
#include "platform/base/Files.h"
#include "platform/base/Problem.h"

#include <cmath>
#include <fstream>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// A mono file of 48 kHz, 16 bits, whose amplitude is given second by second.
void writeWave(const std::filesystem::path& path, const std::vector<double>& amplitudes) {
    std::string samples;
    for (std::size_t second = 0; second < amplitudes.size(); ++second)
        for (int at = 0; at < 48000; ++at) {
            const double wave = std::sin(2 * M_PI * 1000 * at / 48000) * amplitudes[second];
            const auto sample =
                static_cast<std::int16_t>(std::clamp(std::lround(wave * 32768), -32768L, 32767L));
            samples += {static_cast<char>(sample & 0xFF), static_cast<char>(sample >> 8)};
        }
    const auto number = [](std::uint32_t value, int bytes) {
        std::string text;
        for (int at = 0; at < bytes; ++at) text += static_cast<char>(value >> (8 * at));
        return text;
    };
    const auto size = static_cast<std::uint32_t>(samples.size());
    std::ofstream(path, std::ios::binary)
        << "RIFF" << number(36 + size, 4) << "WAVEfmt " << number(16, 4) << number(1, 2) << number(1, 2)
        << number(48000, 4) << number(96000, 4) << number(2, 2) << number(16, 2) << "data" << number(size, 4)
        << samples;
}

class LoudnessFiles : public testing::Test {
protected:
    void SetUp() override { std::filesystem::create_directories(folder); }
    void TearDown() override { std::filesystem::remove_all(folder); }

    Source source(const std::string& name) const { return {.path = (folder / name).string()}; }

    std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("loudness-" + UUID::make().text());
};

}

TEST(Loudness, putsDecibelsOnALinearScale) {
    EXPECT_EQ(Loudness::level(1), 255);
    EXPECT_EQ(Loudness::level(1.5), 255);
    EXPECT_EQ(Loudness::level(0.1), 170); // -20 dBFS
    EXPECT_EQ(Loudness::level(0.001), 0);
    EXPECT_EQ(Loudness::level(1.0 / 32768), 0);
    EXPECT_EQ(Loudness::level(0), 0);
}

TEST(Loudness, answersTheLoudestOfAStretch) {
    const Loudness loudness{{0, 51, 255, 102}};
    EXPECT_DOUBLE_EQ(loudness.level(0.1, 0.1), 0.2);
    EXPECT_DOUBLE_EQ(loudness.level(0, 0.35), 1);
    EXPECT_DOUBLE_EQ(loudness.level(0.3, 9), 0.4);
    EXPECT_DOUBLE_EQ(loudness.level(2, 3), 0);
    EXPECT_DOUBLE_EQ(loudness.level(0.3, 0), 0);
}

TEST_F(LoudnessFiles, areMeasuredOnceAndKept) {
    writeWave(folder / "a.wav", {0, 0.5, 0.05});
    const auto loudness = Loudness::of(source("a.wav"));
    ASSERT_EQ(loudness.levels.size(), 30u);
    EXPECT_NEAR(loudness.levels[5], 0, 1);
    EXPECT_NEAR(loudness.levels[15], (60 - 6.02) / 60 * 255, 2);
    EXPECT_NEAR(loudness.levels[25], (60 - 26.02) / 60 * 255, 2);

    const auto kept = source("a.wav");
    const auto cache = folder / "cache";
    EXPECT_EQ(Loudness::of(kept, cache), loudness);
    const auto file = cache / "loudness" / (kept.id.text() + ".bin");
    EXPECT_EQ(Files::readWhole(file, 1000).size(), 30u);
    std::ofstream(file, std::ios::trunc) << "levels";
    EXPECT_EQ(Loudness::of(kept, cache).levels.size(), 6u);
    std::ofstream(file, std::ios::trunc) << "";
    EXPECT_EQ(Loudness::of(kept, cache), loudness);
}

TEST_F(LoudnessFiles, ofManySourcesLeaveOutTheBroken) {
    std::vector<Source> sources;
    for (const char* name : {"a.wav", "b.wav", "c.wav"}) {
        writeWave(folder / name, {0.5});
        sources.push_back(source(name));
    }
    std::ofstream(folder / "broken.wav") << "no sound at all";
    sources.push_back(source("broken.wav"));
    sources.push_back(source("gone.wav"));
    const auto all = Loudness::of(sources, std::nullopt);
    EXPECT_EQ(all.size(), 3u);
    EXPECT_EQ(all.at(sources[1].id).levels.size(), 10u);
    EXPECT_THROW(Loudness::of(sources.back()), Problem);

    std::stop_source stopped;
    stopped.request_stop();
    EXPECT_THROW(Loudness::of(sources[0], std::nullopt, stopped.get_token()), Problem);
}
