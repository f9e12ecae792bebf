#include "core/render/stage/ChromaKey.h"

#include <array>
#include <cmath>
#include <vector>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// What of a colour a cube leaves, 0 to 1: its four numbers at the nearest of its steps.
std::array<float, 4> looked(const Filters::ColourCube& cube, double red, double green, double blue) {
    const auto step = [](double channel) { return std::size_t(std::lround(channel * 31)); };
    const float* cell = cube.values->data() + (step(blue) * 1024 + step(green) * 32 + step(red)) * 4;
    return {cell[0], cell[1], cell[2], cell[3]};
}

}

TEST(ChromaKey, takesAColourOutByItsHue) {
    const auto cube = ChromaKey::cube({0, 255, 0, 255});
    ASSERT_EQ(cube->values->size(), 131'072U);
    // Hues of 120 ± 31 degrees lie in the middle of the soft band.
    struct Case {
        const char* name;
        std::array<double, 3> colour; // in 31sts
        double alpha;
    };
    for (const auto& [name, colour, alpha] : std::vector<Case>{{"the key", {0, 31, 0}, 0},
                                                               {"a shade of it", {0, 15, 0}, 0},
                                                               {"20 degrees off", {10, 31, 0}, 0},
                                                               {"31 degrees off", {16, 31, 0}, 0.5},
                                                               {"31 the other way", {0, 31, 16}, 0.5},
                                                               {"yellow", {31, 31, 0}, 1},
                                                               {"nearly black", {0, 6, 0}, 1},
                                                               {"pale", {23, 31, 23}, 1},
                                                               {"grey", {15, 15, 15}, 1}}) {
        const auto cell = looked(*cube, colour[0] / 31, colour[1] / 31, colour[2] / 31);
        EXPECT_NEAR(cell[3], alpha, 0.04) << name;
        EXPECT_NEAR(cell[1], colour[1] / 31 * cell[3], 0.02) << name << ": premultiplied";
    }
    EXPECT_EQ(looked(*ChromaKey::cube({255, 0, 40, 255}), 1, 0, 0)[3], 0) << "hues meet at red";
    EXPECT_FALSE(ChromaKey::cube({255, 255, 255, 255})) << "white has no hue, not that of red";
    EXPECT_FALSE(ChromaKey::cube({90, 94, 90, 255}));
    EXPECT_TRUE(ChromaKey::cube({60, 80, 60, 255}));
}
