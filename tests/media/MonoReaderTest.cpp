#include "platform/media/MonoReader.h"
#include "tests/TemporaryFolder.h"
#include "tests/sound/Waves.h"

#include <cmath>
#include <cstring>
#include <numbers>
#include <vector>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr int seconds = 3;

/// A stereo file of 48,000 frames a second; each side of a frame by a function of its time in seconds.
template <class Left, class Right>
std::filesystem::path file(const TemporaryFolder& folder, Left left, Right right) {
    const auto at = [](auto side) {
        return [=](int frame) mutable { return float(side(double(frame) / Sound::rate)); };
    };
    waves::write(folder / "sound.wav", waves::made(seconds * Sound::rate, at(left), at(right)));
    return folder / "sound.wav";
}

auto tone(double hertz, double volume) {
    return [=](double time) { return volume * std::sin(2 * std::numbers::pi * hertz * time); };
}

std::vector<float> read(MonoReader& reader, std::int64_t from, std::size_t count) {
    std::vector<float> sound(count);
    reader.read(from, sound);
    return sound;
}

}

TEST(MonoReader, averagesBothSidesAndKeepsWhatTheRateHolds) {
    const TemporaryFolder folder;
    for (const double hertz : {50.0, 440.0, 3000.0, 7000.0}) {
        MonoReader reader(SoundReader::open(file(folder, tone(hertz, 0.5), tone(hertz, 0.3))), 16000);
        const auto sound = read(reader, 8000, 16000);
        for (std::size_t at = 0; at < sound.size(); ++at)
            ASSERT_NEAR(sound[at], tone(hertz, 0.4)(0.5 + double(at) / 16000), 0.002)
                << hertz << " Hz at " << at;
    }
}

TEST(MonoReader, filtersOutWhatTheRateCannotHold) {
    const TemporaryFolder folder;
    for (const double hertz : {8500.0, 12000.0, 15500.0, 23000.0}) {
        MonoReader reader(SoundReader::open(file(folder, tone(hertz, 0.9), tone(hertz, 0.9))), 16000);
        EXPECT_LT(waves::peak(read(reader, 4000, 30000)), 0.001) << hertz;
    }
    MonoReader low(SoundReader::open(file(folder, tone(5000, 0.9), tone(5000, 0.9))), 8000);
    EXPECT_LT(waves::peak(read(low, 4000, 15000)), 0.001);
}

TEST(MonoReader, readsTheSameInPiecesAndInAnyOrder) {
    const TemporaryFolder folder;
    const auto noise = [state = 1u](double) mutable {
        state = state * 1664525u + 1013904223u;
        return double(state) / 4294967296.0 - 0.5;
    };
    const auto path = file(folder, noise, noise);
    MonoReader whole(SoundReader::open(path), 16000);
    const auto all = read(whole, 0, 40000);
    MonoReader pieces(SoundReader::open(path), 16000);
    const std::pair<std::int64_t, std::size_t> order[] = {
        {0, 1}, {1, 700}, {701, 5000}, {5701, 3}, {30000, 9999}, {5690, 20000}, {2, 13}};
    for (const auto& [from, count] : order) {
        const auto piece = read(pieces, from, count);
        EXPECT_TRUE(std::equal(piece.begin(), piece.end(), all.begin() + from)) << from;
    }
}

TEST(MonoReader, isSilentAroundTheSoundAndTellsWhereItEnds) {
    const TemporaryFolder folder;
    const auto click = [](double time) { return std::abs(time - 1) < 1e-9 ? 1.0 : 0.0; };
    MonoReader reader(SoundReader::open(file(folder, click, click)), 16000);
    EXPECT_NEAR(reader.length(), seconds, 1e-6);
    std::vector<float> sound(17000);
    EXPECT_EQ(reader.read(-1000, sound), 17000);
    EXPECT_EQ(reader.read(0, sound), 17000);
    EXPECT_EQ(std::max_element(sound.begin(), sound.end()) - sound.begin(), 16000)
        << "a click stays in its place";
    EXPECT_EQ(reader.read(seconds * 16000 - 100, sound), 100);
    EXPECT_EQ(reader.read(seconds * 16000 + 100, sound), 0);
    EXPECT_EQ(waves::peak(sound), 0);
}

TEST(MonoReader, aJumpBackForgetsWhereTheSoundEnded) {
    const TemporaryFolder folder;
    MonoReader reader(SoundReader::open(file(folder, tone(440, 0.5), tone(440, 0.5))), 16000);
    std::vector<float> into(1000);
    EXPECT_EQ(reader.read(47'500, into), 500) << "it ends here";
    EXPECT_EQ(reader.read(-5000, into), 0) << "before it begins";
    EXPECT_EQ(reader.read(0, into), 1000);
}
