#include "platform/media/FrameReader.h"
#include "platform/media/SoundReader.h"
#include "tests/media/Made.h"

#include <fstream>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr double length = 200; // seconds

// A third of the file, more than a minute in its midst, is nothing but zeros.
std::filesystem::path broken(const std::string& kind) {
    const auto path = made::folder() / ("stretch." + kind);
    if (std::filesystem::exists(path)) return path;
    const auto whole = made::file("whole." + kind,
                                  "-f lavfi -i testsrc=s=96x64:r=25:d=200 -f lavfi -i "
                                  "anoisesrc=d=200:r=44100:seed=1:a=0.3 -c:v libx264 -preset ultrafast -g 50 "
                                  "-b:v 100k -c:a aac -b:a 64k");
    std::ifstream stream(whole, std::ios::binary);
    std::string bytes(std::istreambuf_iterator<char>(stream), {});
    const auto data = static_cast<double>(std::min(bytes.rfind("moov"), bytes.size()));
    const auto from = static_cast<std::size_t>(0.30 * data);
    std::fill(bytes.begin() + from, bytes.begin() + static_cast<std::size_t>(0.65 * data), '\0');
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

double loudest(SoundReader& reader, double at) {
    std::vector<float> samples(Sound::rate / 2 * Sound::channels);
    reader.read(static_cast<std::int64_t>(at * Sound::rate), samples);
    double most = 0;
    for (const float sample : samples) most = std::max(most, std::abs(static_cast<double>(sample)));
    return most;
}

double shownAt(FrameReader& reader, double time) {
    const auto frame = reader.at(time);
    return frame ? frame->time : -1;
}

class BrokenStretch : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override { MURBO_NEEDS_FFMPEG(); }
};

}

TEST_P(BrokenStretch, picturesGoOnBehindIt) {
    const auto path = broken(GetParam());
    for (const auto purpose : {FrameReader::Purpose::stills, FrameReader::Purpose::playing}) {
        FrameReader steps = FrameReader::open(path, purpose);
        for (double time = 0.1; time < length - 1; time += 5) {
            const double shown = shownAt(steps, time);
            EXPECT_LE(shown, time + 0.001);
            if (time < 50 || time > 140) {
                EXPECT_NEAR(shown, time, 0.041);
            }
        }
        FrameReader jumps = FrameReader::open(path, purpose);
        for (const double time : {10.0, 65.0, 170.0, 64.0, 100.0, 150.0, 30.0, 199.0})
            if (const double shown = shownAt(jumps, time); time < 50 || time > 140) {
                EXPECT_NEAR(shown, time, 0.041);
            }
    }
}

TEST_P(BrokenStretch, everyPictureBehindItComesInTurn) {
    FrameReader reader = FrameReader::open(broken(GetParam()), FrameReader::Purpose::sampling);
    int behind = 0;
    double last = -1;
    while (const auto frame = reader.next()) {
        EXPECT_GT(frame->time, last);
        last = frame->time;
        behind += last > 140;
    }
    EXPECT_NEAR(last, length, 0.1);
    EXPECT_GT(behind, 20);
}

TEST_P(BrokenStretch, soundGoesOnBehindIt) {
    const auto path = broken(GetParam());
    SoundReader steps = SoundReader::open(path);
    for (double time = 0; time < length - 1; time += 0.5) {
        const double heard = loudest(steps, time);
        if (time < 50 || time > 140) {
            EXPECT_GT(heard, 0.1) << time;
        }
    }
    SoundReader jumps = SoundReader::open(path);
    for (const double time : {10.0, 65.0, 150.0, 90.0, 170.0, 100.0, 30.0, 199.0}) {
        const double heard = loudest(jumps, time);
        if (time < 50 || time > 140) {
            EXPECT_GT(heard, 0.1) << time;
        }
    }
    EXPECT_EQ(loudest(jumps, length + 1), 0);
}

INSTANTIATE_TEST_SUITE_P(Files, BrokenStretch, testing::Values("mp4", "ts"),
                         [](const auto& kind) { return std::string(kind.param); });
