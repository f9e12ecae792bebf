#include "core/render/export/PictureFeed.h"
#include "tests/TemporaryFolder.h"
#include "tests/render/Samples.h"

#include <algorithm>
#include <cmath>
#include <fstream>

#include <gtest/gtest.h>

namespace murbo {
namespace {

using samples::Stretch;

/// The numbers that the footage shows at each frame of a video; -1 for black.
std::vector<int> shown(const Project& project, const std::vector<Stretch>& stretches, double rate) {
    const auto composition =
        VideoComposition::make(samples::video(project, stretches), project, {}, "", {}, rate);
    PictureFeed feed(composition);
    std::vector<int> numbers;
    for (std::int64_t frame = 0; frame < composition.frameCount(); ++frame) {
        const auto picture = feed.frame(frame);
        const auto& segment = composition.segments[composition.moment(frame).segment];
        EXPECT_EQ(picture.source, picture.image ? segment.source : std::nullopt) << frame;
        numbers.push_back(picture.image ? samples::numberIn(samples::drawn(*picture.image, 640, 360)) : -1);
    }
    return numbers;
}

/// The numbers that ought to be there: the source's frame that is on at each moment.
std::vector<int> expected(const std::vector<Stretch>& stretches, double sourceRate, double rate, int last) {
    std::vector<int> numbers;
    for (const auto& [source, start, end] : stretches) {
        const auto frames = std::lround((end - start) * rate);
        for (int frame = 0; frame < frames; ++frame) {
            const double at = start + frame / rate;
            numbers.push_back(std::min(static_cast<int>(std::floor(at * sourceRate + 1e-3)), last));
        }
    }
    return numbers;
}

TEST(PictureFeed, everyFrameShowsThePictureOfItsMoment) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "30.mp4", 600, 30);
    samples::writeNumbered(folder / "50.mp4", 300, 50);
    const std::vector<std::vector<Stretch>> videos{
        {{0, 0, 2}},
        {{0, 1, 2}, {0, 2, 3}},                    // goes on
        {{0, 1, 2}, {0, 2.5, 3.5}, {0, 3.6, 4.6}}, // pauses taken out
        {{0, 12, 13}, {0, 3, 4}, {0, 18, 19}},     // back and forth in one file
        {{0, 5, 5.1}, {0, 0, 0.1}, {0, 15, 15.1}, {0, 5.1, 5.2}},
        {{0, 19, 21}, {0, 0, 0.5}}, // past the end of the file
    };
    for (const auto& stretches : videos) {
        const auto project = samples::project({folder / "30.mp4"});
        for (const double rate : {30.0, 60.0, 20.0}) {
            EXPECT_EQ(shown(project, stretches, rate), expected(stretches, 30, rate, 599)) << rate;
        }
    }
    const auto project = samples::project({folder / "50.mp4"});
    EXPECT_EQ(shown(project, {{0, 1, 2}, {0, 4, 5}}, 30), expected({{0, 1, 2}, {0, 4, 5}}, 50, 30, 299));
    const auto both = samples::project({folder / "30.mp4", folder / "50.mp4"});
    EXPECT_EQ(shown(both, {{0, 1, 1.1}, {1, 4, 4.1}, {1, 2, 2.1}, {0, 3, 3.1}}, 30),
              (std::vector<int>{30, 31, 32, 200, 201, 203, 100, 101, 103, 90, 91, 92}));
}

TEST(PictureFeed, whatCannotBeReadIsBlackAndTheRestGoesOn) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "good.mp4", 90, 30);
    std::ofstream(folder / "empty.mp4").put('\0');
    const auto project = samples::project({folder / "good.mp4", folder / "empty.mp4", folder / "gone.mp4"});
    const std::vector<Stretch> stretches{{1, 0, 0.1}, {0, 1, 1.1}, {2, 0, 0.1}, {0, 2, 2.1}, {1, 0, 0.1}};
    EXPECT_EQ(shown(project, stretches, 30),
              (std::vector<int>{-1, -1, -1, 30, 31, 32, -1, -1, -1, 60, 61, 62, -1, -1, -1}));
}

}
}
