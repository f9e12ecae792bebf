#include "core/render/DrawnFrames.h"
#include "tests/TemporaryFolder.h"
#include "tests/render/Samples.h"

#include <gtest/gtest.h>

namespace murbo {
namespace {

TEST(DrawnFrames, comeInOrderAndAreTheSameHoweverManyDraw) {
    const TemporaryFolder folder;
    samples::writeNumbered(folder / "a.mp4", 60, 30);
    const auto project = samples::project({folder / "a.mp4"});
    const auto composition = VideoComposition::make(samples::video(project, {{0, 0, 0.5}, {0, 1.5, 1.9}}),
                                                    project, {}, "", {}, 30);
    const auto sums = [&](int workers) {
        DrawnFrames frames(composition, workers);
        std::vector<std::uint64_t> found;
        while (const auto planes = frames.next()) {
            std::uint64_t sum = 0;
            for (int y = 0; y < 1080; ++y) {
                const auto* row = planes->plane(0) + y * planes->stride(0);
                for (int x = 0; x < 1080; ++x) sum = sum * 31 + row[x];
            }
            found.push_back(sum);
        }
        return found;
    };
    const auto alone = sums(1);
    EXPECT_EQ(alone.size(), 27U);
    EXPECT_EQ(sums(4), alone);
    DrawnFrames(composition).next(); // given up half-way: ends by itself
}

}
}
