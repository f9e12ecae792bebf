#include "core/render/CaptionMotion.h"

#include <gtest/gtest.h>

namespace murbo {
namespace {

constexpr double wide = 1080;
constexpr double high = 1920;

CaptionCue cueOf(const std::string& text, double start, double end) {
    return {.start = start, .end = end, .text = text};
}

TEST(CaptionMotion, entrancesAndExitsFollowTheirCurves) {
    struct Case {
        std::string enter;
        std::string exit;
        bool big;
        double time; // of a caption from 1 to 3
        Movement expected;
    };
    const double half = 0.75; // the settling curve half-way
    for (const auto& [enter, exit, big, time, expected] :
         std::vector<Case>{{"pop", "none", false, 1, {.scale = 0.86}},
                           {"pop", "none", false, 1.06, {.scale = 0.86 + 0.14 * half}},
                           {"pop", "none", true, 1.08, {.scale = 0.6 + 0.4 * half}},
                           {"words", "none", false, 1.06, {.scale = 0.94 + 0.06 * half}},
                           {"fade", "none", false, 1.075, {.opacity = half}},
                           {"rise", "none", false, 1.1, {.dy = -60 * (1 - half), .opacity = half}},
                           {"none", "none", true, 1, {}},
                           {"slide-up", "none", false, 1, {.dy = -0.6 * high}},
                           {"none", "fade", false, 2.925, {.opacity = 0.5}},
                           {"none", "pop", false, 3, {.scale = 0.001}},
                           {"none", "sink", false, 2.925, {.dy = 30, .opacity = 0.5}},
                           {"none", "slide-left", false, 3, {.dx = -wide}}}) {
        auto cue = cueOf("one two", 1, 3);
        cue.big = big;
        CaptionStyle style;
        style.motion = enter;
        style.exit = exit;
        const auto at = CaptionMotion::at(cue, style, time, {wide, high});
        const auto name = enter + " to " + exit + " at " + std::to_string(time);
        EXPECT_NEAR(at.dx, expected.dx, 1e-6) << name;
        EXPECT_NEAR(at.dy, expected.dy, 1e-6) << name;
        EXPECT_NEAR(at.scale, expected.scale, 1e-9) << name;
        EXPECT_NEAR(at.rotation, expected.rotation, 1e-9) << name;
        EXPECT_NEAR(at.opacity, expected.opacity, 1e-9) << name;
    }
}

TEST(CaptionMotion, theCuesOwnMotionGoesBeforeTheStyles) {
    auto cue = cueOf("one", 0, 1);
    CaptionStyle style;
    style.motion = "fade";
    EXPECT_EQ(CaptionMotion::at(cue, style, 0, {wide, high}).opacity, 0);
    cue.move = Move{.enter = "none"};
    EXPECT_EQ(CaptionMotion::at(cue, style, 0, {wide, high}).opacity, 1);
    EXPECT_EQ(CaptionMotion::at(cueOf("one", 0, 1), {}, 0, {wide, high}).scale, 0.86); // "pop" by default
}

TEST(CaptionMotion, wordsComeOneByOne) {
    CaptionStyle style;
    style.motion = "words";
    const auto cue = cueOf("one two three four", 2, 4);
    for (const auto& [time, count] :
         std::vector<std::pair<double, int>>{{2, 1}, {2.49, 1}, {2.5, 2}, {3.99, 4}, {4, 4}}) {
        EXPECT_EQ(CaptionMotion::reveal(cue, style, time), count) << time;
    }
    EXPECT_FALSE(CaptionMotion::reveal(cueOf("one", 2, 4), style, 3));
    style.motion = "pop";
    EXPECT_FALSE(CaptionMotion::reveal(cue, style, 3));
}

}
}
