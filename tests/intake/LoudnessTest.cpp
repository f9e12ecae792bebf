#include "core/intake/samples/Loudness.h"
#include "core/intake/transcription/Sound.h"
#include "core/model/Project.h"
#include "platform/base/Problem.h"
#include "tests/TemporaryFolder.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// A folder of sounds, whose amplitude is given second by second.
class LoudnessFiles : public testing::Test {
protected:
    Source sound(const std::string& name, const std::vector<double>& amplitudes) const {
        std::string samples;
        for (std::size_t at = 0; at < amplitudes.size() * Sound::speechRate; ++at) {
            const double wave = std::sin(2 * M_PI * at / 16) * amplitudes[at / Sound::speechRate];
            const auto sample = static_cast<std::int16_t>(std::lround(wave * 32767));
            samples.append(reinterpret_cast<const char*>(&sample), 2);
        }
        return {.path =
                    folder.file(name, Sound::header(static_cast<std::int64_t>(samples.size())) + samples)};
    }

    const TemporaryFolder folder;
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
    EXPECT_DOUBLE_EQ(loudness.level(0.05, 0.25), 1); // its last level is the loudest
    EXPECT_DOUBLE_EQ(loudness.level(0.3, 9), 0.4);
    EXPECT_DOUBLE_EQ(loudness.level(2, 3), 0);
    EXPECT_DOUBLE_EQ(loudness.level(0.3, 0), 0);
}

TEST_F(LoudnessFiles, areMeasuredOnceAndKept) {
    const auto source = sound("a.wav", {0, 0.5, 0.05});
    const auto loudness = Loudness::of(source);
    ASSERT_EQ(loudness.levels.size(), 30u);
    EXPECT_NEAR(loudness.levels[5], 0, 1);
    EXPECT_NEAR(loudness.levels[15], (60 - 6.02) / 60 * 255, 2);
    EXPECT_NEAR(loudness.levels[25], (60 - 26.02) / 60 * 255, 2);

    const auto cache = folder / "cache";
    EXPECT_EQ(Loudness::of(source, cache), loudness);
    const auto kept = "cache/loudness/" + source.id.text() + ".bin";
    EXPECT_EQ(contentsOf(folder / kept).size(), 30u);
    folder.file(kept, "levels");
    EXPECT_EQ(Loudness::of(source, cache).levels.size(), 6u);
    folder.file(kept, "");
    EXPECT_EQ(Loudness::of(source, cache), loudness);
    EXPECT_EQ(Loudness::of(source, folder / "moved.mbproj/cache"), loudness);
    EXPECT_FALSE(std::filesystem::exists(folder / "moved.mbproj")) << "no package comes back that is gone";
}

TEST_F(LoudnessFiles, ofManySourcesLeaveOutTheBroken) {
    const std::vector<Source> sources{sound("a.wav", {0.5}),
                                      sound("b.wav", {0.5}),
                                      sound("c.wav", {0.5}),
                                      {.path = folder.file("broken.wav", "no sound at all")},
                                      {.path = folder / "gone.wav"}};
    const auto all = Loudness::of(sources, std::nullopt);
    EXPECT_EQ(all.size(), 3u);
    EXPECT_EQ(all.at(sources[1].id).levels.size(), 10u);
    EXPECT_THROW(Loudness::of(sources.back()), Problem);

    std::stop_source stopped;
    stopped.request_stop();
    EXPECT_THROW(Loudness::of(sources[0], std::nullopt, stopped.get_token()), Problem);
}
