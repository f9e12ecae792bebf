#include "core/render/export/DrawnFrames.h"
#include "tests/TemporaryFolder.h"
#include "tests/render/Samples.h"

#include <cstring>

#include <gtest/gtest.h>

namespace murbo {
namespace {

/// A generated video of alternating colours, which needs no file.
VideoComposition colours(double each, int cuts) {
    Video video{.aspect = Video::Aspect::square};
    for (int cut = 0; cut < cuts; ++cut)
        video.cuts.edit().push_back(Cut::generated("stock.generator.solid", 1,
                                                   Values{{"colour", cut % 2 ? "FFFFFF" : "000000"}}, each));
    return VideoComposition::make(video, {}, {}, "", {}, 10);
}

int lumaIn(const Planes& planes) {
    return planes.plane(0)[planes.stride(0) * (planes.height() / 2) + planes.width() / 2];
}

TEST(DrawnFrames, allComeInTheirOrderOnAnyNumberOfThreads) {
    const auto composition = colours(0.2, 9);
    for (const int workers : {1, 3, 0}) {
        DrawnFrames frames(composition, workers);
        std::string shades;
        while (const auto planes = frames.next()) {
            EXPECT_EQ(planes->width(), 1080);
            EXPECT_EQ(planes->height(), 1080);
            shades += lumaIn(*planes) > 128 ? 'w' : 'b';
        }
        EXPECT_EQ(shades, "bbwwbbwwbbwwbbwwbb") << workers;
        EXPECT_FALSE(frames.next());
    }
}

TEST(DrawnFrames, stoppingEndsItWhereverItIs) {
    const auto composition = colours(60, 1);
    DrawnFrames frames(composition, 2);
    ASSERT_TRUE(frames.next());
    frames.stop();
    while (frames.next()) continue; // those drawn already, a few
    EXPECT_FALSE(frames.next());
    const DrawnFrames letGo(composition, 1);
}

TEST(PlanesPool, handsOutWhatNobodyHoldsAnyMore) {
    PlanesPool pool(64, 32);
    std::optional first = pool.take();
    std::optional second = pool.take();
    EXPECT_EQ(first->width(), 64);
    EXPECT_EQ(first->height(), 32);
    EXPECT_NE(first->plane(0), second->plane(0));
    const auto* samples = first->plane(0);
    const auto keeper = first->keeper();
    first.reset();
    EXPECT_NE(pool.take().plane(0), samples) << "somebody still reads it";
    second.reset();
    EXPECT_NE(pool.take().plane(0), samples);
}

TEST(PlanesPool, isUsedAgainOnceItIsLetGo) {
    PlanesPool pool(64, 32);
    const auto* samples = pool.take().plane(0);
    EXPECT_EQ(pool.take().plane(0), samples);
}

}
}
