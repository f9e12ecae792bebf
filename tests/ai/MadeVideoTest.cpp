#include "core/ai/LastRuns.h"
#include "core/ai/MadeVideo.h"
#include "tests/ai/Footage.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(MadeVideo, isTheLastWithItsRun) {
    Footage footage;
    const auto run = LastRuns::now(Run::By::app, "a/model");
    const auto id =
        MadeVideo::add(footage.project, "T", Video::Aspect::square, {footage.cut(1, 4)}, Kit::ID::ideas, run);
    const auto& video = footage.project.videos.back();
    EXPECT_EQ(video.id, id);
    EXPECT_EQ(video.tag(), "V1");
    EXPECT_EQ(video.aspect, Video::Aspect::square);
    EXPECT_EQ(LastRuns::of(video.runs, Kit::ID::ideas), run);
}

TEST(MadeVideo, aTitleIsOneLineAndNoLongerThanTitlesAre) {
    EXPECT_EQ(MadeVideo::title("Down\nshe\tgoes"), "Down she goes");
    EXPECT_EQ(MadeVideo::title(std::string(1'000'000, 'x')).size(), 500u);
}
