#include "platform/base/Problem.h"
#include "platform/image/Planes.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(Planes, haveEvenSidesAndChromaOfHalfTheSize) {
    for (const auto& [width, height] : {std::pair{3, 2}, {2, 5}, {0, 2}, {40000, 2}})
        EXPECT_THROW(Planes(width, height), Problem) << width << " x " << height;
    Planes planes(130, 6);
    EXPECT_EQ(planes.stride(0) % 64, 0);
    EXPECT_GE(planes.stride(1), 65);
    EXPECT_GE(planes.plane(1) - planes.plane(0), planes.stride(0) * 6);
    EXPECT_GE(planes.plane(2) - planes.plane(1), planes.stride(1) * 3);
}
