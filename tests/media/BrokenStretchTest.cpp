#include "platform/media/FrameReader.h"
#include "tests/media/Sounds.h"

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
    std::string bytes = contentsOf(whole);
    const auto data = static_cast<double>(std::min(bytes.rfind("moov"), bytes.size()));
    const auto from = static_cast<std::size_t>(0.30 * data);
    std::fill(bytes.begin() + from, bytes.begin() + static_cast<std::size_t>(0.65 * data), '\0');
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

bool isWhole(double time) {
    return time < 50 || time > 140;
}

// Step by step through the file, and to and fro in it.
std::vector<double> steps(double first, double step) {
    std::vector<double> times;
    for (double time = first; time < length - 1; time += step) times.push_back(time);
    return times;
}
const std::vector<double> jumps = {10, 65, 170, 64, 90, 150, 100, 30, 199};

class BrokenStretch : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override { MURBO_NEEDS_FFMPEG(); }
};

}

TEST_P(BrokenStretch, picturesGoOnBehindIt) {
    for (const auto purpose : {FrameReader::Purpose::stills, FrameReader::Purpose::playing})
        for (const auto& times : {steps(0.1, 5), jumps}) {
            FrameReader reader = FrameReader::open(broken(GetParam()), purpose);
            for (const double time : times) {
                const auto frame = reader.at(time);
                const double shown = frame ? frame->time : -1;
                EXPECT_LE(shown, time + 0.001);
                if (isWhole(time)) {
                    EXPECT_NEAR(shown, time, 0.041);
                }
            }
        }
    FrameReader reader = FrameReader::open(broken(GetParam()), FrameReader::Purpose::sampling);
    int behind = 0;
    double last = -1;
    while (const auto frame = reader.next()) {
        EXPECT_GT(frame->time, last) << "every picture comes in turn";
        last = frame->time;
        behind += last > 140;
    }
    EXPECT_NEAR(last, length, 0.1);
    EXPECT_GT(behind, 20);
}

TEST_P(BrokenStretch, soundGoesOnBehindIt) {
    auto beyond = jumps;
    beyond.push_back(length + 1);
    for (const auto& times : {steps(0, 0.5), beyond}) {
        SoundReader reader = SoundReader::open(broken(GetParam()));
        for (const double time : times) {
            std::vector<float> samples(Sound::rate / 2 * Sound::channels);
            reader.read(static_cast<std::int64_t>(time * Sound::rate), samples);
            if (time > length) {
                EXPECT_EQ(loudest(samples), 0);
            } else if (isWhole(time)) {
                EXPECT_GT(loudest(samples), 0.1) << time;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Files, BrokenStretch, testing::Values("mp4", "ts"),
                         [](const auto& kind) { return std::string(kind.param); });
