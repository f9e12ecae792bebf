#include "core/model/Video.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Video, isAsLongAsItsCutsTogether) {
    Video video{.number = 2};
    EXPECT_EQ(video.length(), 0);
    video.cuts = std::vector<Cut>{{.start = 10, .end = 12}, {.start = 9, .end = 3}, {.start = 1, .end = 1.5}};
    EXPECT_EQ(video.length(), 2.5) << "a cut that ends before it starts takes nothing away";
    EXPECT_EQ(video.tag(), "V2");
    video.part.emplace("b");
    EXPECT_EQ(video.tag(), "V2b");
}
