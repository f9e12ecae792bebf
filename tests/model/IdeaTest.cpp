#include "core/model/Idea.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Idea, isAsLongAsTheVideoItWouldBecome) {
    Idea idea;
    EXPECT_EQ(idea.length(), 0);
    idea.cuts = std::vector<Cut>{{.start = 10, .end = 12}, {.start = 9, .end = 3}, {.start = 1, .end = 1.5}};
    EXPECT_EQ(idea.length(), 2.5);
}
