#include "core/ai/MadeVideo.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(MadeVideo, aTitleIsOneLineAndNoLongerThanTitlesAre) {
    EXPECT_EQ(MadeVideo::title("Down\nshe\tgoes"), "Down she goes");
    EXPECT_EQ(MadeVideo::title(std::string(1'000'000, 'x')).size(), 500u);
}
