#include "core/render/Renderer.h"
#include "core/render/plan/Motion.h"
#include "platform/image/draw/Canvas.h"
#include "tests/render/Samples.h"

#include <cmath>
#include <set>

#include <gtest/gtest.h>

namespace murbo {
namespace {

constexpr double wide = 1080;
constexpr double high = 1920;

/// A plan of one shot over ten seconds.
Plan planOf(const Shot& shot, bool implicit = false, double start = 0) {
    Plan plan;
    plan.frame = {wide, high};
    plan.shots.push_back({start, 10, shot, implicit});
    plan.style = CaptionStyle::builtIn()[0];
    return plan;
}

Image flat(Colour colour, double width, double height) {
    return Image::colour(colour).cropped({0, 0, width, height});
}

/// Red on the left half, blue on the right.
Image halves(double width, double height) {
    return flat({255, 0, 0}, width / 2, height).over(flat({0, 0, 255}, width, height));
}

Image rendered(const std::optional<Image>& picture, const Plan& plan, double time,
               const std::optional<UUID>& source = {}) {
    CaptionCache captions;
    PlaybookMedia media;
    return Renderer::render(picture, source, plan, time, captions, media);
}

std::uint32_t at(const Image& image, int x, int y) {
    return samples::pixel(Canvas::bitmap(image, {double(x), double(y), 1, 1}), 0, 0);
}

::testing::AssertionResult near(std::uint32_t pixel, int red, int green, int blue, int slack = 2) {
    const int found[3] = {int(pixel >> 16 & 255), int(pixel >> 8 & 255), int(pixel & 255)};
    const int wanted[3] = {red, green, blue};
    for (int channel = 0; channel < 3; ++channel) {
        if (std::abs(found[channel] - wanted[channel]) > slack) {
            return ::testing::AssertionFailure() << found[0] << ", " << found[1] << ", " << found[2];
        }
    }
    return ::testing::AssertionSuccess();
}

TEST(Renderer, theShotLaysOutThePicture) {
    Shot shot;
    auto plan = planOf(shot);
    const UUID source = UUID::make();
    plan.framings[source] = {.content = {0, 0, 0.5, 1}, .face = {0.5, 0, 0.5, 1}, .split = 0.25};
    const auto picture = halves(1920, 1080);
    const auto split = rendered(picture, plan, 1, source);
    EXPECT_TRUE(near(at(split, 540, 240), 255, 0, 0));
    EXPECT_TRUE(near(at(split, 540, 478), 255, 0, 0));
    EXPECT_TRUE(near(at(split, 540, 482), 0, 0, 255));
    EXPECT_TRUE(near(at(split, 540, 1900), 0, 0, 255));

    plan.shots[0].shot.layout = Shot::Layout::face;
    EXPECT_TRUE(near(at(rendered(picture, plan, 1, source), 540, 240), 0, 0, 255));
    plan.shots[0].shot.layout = Shot::Layout::content;
    EXPECT_TRUE(near(at(rendered(picture, plan, 1, source), 540, 1900), 255, 0, 0));
}

TEST(Renderer, aPanelFallsOnItsFrameToThePixel) {
    // Four coloured quarters, the middle cut out and doubled.
    const auto picture = flat({255, 0, 0}, 50, 50)
                             .over(flat({0, 255, 0}, 100, 50))
                             .over(flat({0, 0, 255}, 50, 100))
                             .over(flat({255, 255, 255}, 100, 100));
    const auto placed = Renderer::draw(picture, {{25, 25, 50, 50}, {10, 20, 100, 100}});
    EXPECT_EQ(placed.extent(), (Rect{10, 20, 100, 100}));
    EXPECT_TRUE(near(at(placed, 10, 20), 255, 0, 0));
    EXPECT_TRUE(near(at(placed, 109, 20), 0, 255, 0));
    EXPECT_TRUE(near(at(placed, 10, 119), 0, 0, 255));
    EXPECT_TRUE(near(at(placed, 109, 119), 255, 255, 255));
    EXPECT_EQ(at(placed, 9, 60), 0U);
    EXPECT_EQ(at(placed, 110, 60), 0U);
}

TEST(Renderer, aCropOfLessThanAPixelShowsOne) {
    for (const double thin : {0.0, 0.25, 1.0}) {
        const auto placed = Renderer::draw(halves(100, 100), {{49.8, 49.8, thin, thin}, {0, 0, 200, 200}});
        EXPECT_TRUE(near(at(placed, 38, 100), 255, 0, 0)) << thin; // 0.2 of a pixel, 200 times as wide
        EXPECT_TRUE(near(at(placed, 42, 100), 0, 0, 255)) << thin;
    }
}

TEST(Renderer, beyondThePicturesEdgeItsEdgeGoesOn) {
    const auto placed = Renderer::draw(halves(100, 100), {{-50, -50, 200, 200}, {0, 0, 200, 200}});
    for (const int y : {0, 100, 199}) {
        EXPECT_TRUE(near(at(placed, 0, y), 255, 0, 0));
        EXPECT_TRUE(near(at(placed, 199, y), 0, 0, 255));
    }
    Shot shot;
    shot.move = "shake";
    const auto plan = planOf(shot);
    for (const double time : {0.0, 0.05, 0.1, 0.2, 0.5}) {
        const auto image = rendered(flat({200, 200, 200}, 1920, 1080), plan, time);
        for (const int y : {0, 958, 962, 1919}) EXPECT_TRUE(near(at(image, 3, y), 200, 200, 200)) << time;
    }
}

TEST(Renderer, transitionsFollowTheirFormulas) {
    const Size frame{wide, high};
    const auto grey = flat({100, 100, 100}, wide, high);
    struct Case {
        std::string name;
        double progress;
        int expected;
    };
    // A flash begins at 100 + 0.9·155.
    const Case cases[] = {{"flash", -1, 240}, {"flash", 0.5, 135}, {"flash", 2, 100},  {"dip", 0, 0},
                          {"dip", 0.25, 25},  {"blur", 0, 100},    {"whip", 0.5, 100}, {"wipe", 0.5, 100}};
    for (const auto& [name, progress, expected] : cases) {
        const auto image = Renderer::transitionIn(name, grey, progress, frame);
        for (const int x : {0, 540, 1079}) {
            EXPECT_TRUE(near(at(image, x, 7), expected, expected, expected)) << name << " at " << progress;
        }
        EXPECT_TRUE((Rect{0, 0, wide, high}).contains(image.extent())) << name;
    }
}

TEST(Renderer, aWhipComesInFromTheRightAndABlurStaysInTheMiddle) {
    const Size frame{wide, high};
    const auto picture = halves(wide, high);
    // Half-way: a quarter of half the width aside, smeared 30 pixels to either side.
    const auto whip = Renderer::transitionIn("whip", picture, 0.5, frame);
    EXPECT_TRUE(near(at(whip, 540 + 135 - 40, 900), 255, 0, 0));
    EXPECT_TRUE(near(at(whip, 540 + 135, 900), 128, 0, 128, 12));
    EXPECT_TRUE(near(at(whip, 540 + 135 + 40, 900), 0, 0, 255));
    const auto blur = Renderer::transitionIn("blur", picture, 0.5, frame);
    EXPECT_TRUE(near(at(blur, 540, 960), 128, 0, 128, 130)); // the seam
    EXPECT_TRUE(near(at(blur, 500, 960), 255, 0, 0));
    EXPECT_TRUE(near(at(blur, 580, 960), 0, 0, 255));
}

TEST(Renderer, aGlitchThrowsTheFrameAsideAndLeavesABareEdge) {
    const Size frame{wide, high};
    const auto grey = flat({100, 100, 100}, wide, high);
    std::set<double> throws;
    for (int step = 0; step < 19; ++step) {
        const double progress = (step + 0.5) / 30;
        const auto extent = Renderer::transitionIn("glitch", grey, progress, frame).extent();
        EXPECT_TRUE((Rect{0, 0, wide, high}).contains(extent));
        throws.insert(wide - extent.width);
        const auto half =
            Renderer::transitionIn("glitch", flat({}, wide / 2, high / 2), progress, {wide / 2, high / 2});
        EXPECT_NEAR(wide / 2 - half.extent().width, (wide - extent.width) / 2, 1e-9);
    }
    EXPECT_EQ(throws.size(), 19U);
    EXPECT_GT(*throws.rbegin(), 27); // up to 30 pixels of 1080 to either side
    EXPECT_LE(*throws.rbegin(), 30);
    EXPECT_EQ(Renderer::transitionIn("glitch", grey, 0.66, frame).extent(), (Rect{0, 0, wide, high}));

    Shot shot;
    shot.transition = "glitch";
    EXPECT_EQ(rendered(grey, planOf(shot), 0.1).extent(), (Rect{0, 0, wide, high}));
}

TEST(Renderer, aTransitionPlaysOnceAtItsShotAndNotAtAnImpliedOne) {
    Shot shot;
    shot.layout = Shot::Layout::content;
    shot.transition = "dip";
    const auto grey = flat({100, 100, 100}, 1920, 1080);
    const auto level = [&](const Plan& plan, double time) {
        return at(rendered(grey, plan, time), 540, 960) & 255;
    };
    const auto plan = planOf(shot, false, 2);
    EXPECT_EQ(level(plan, 2), 0U);
    EXPECT_NEAR(level(plan, 2.15), 50, 2);
    EXPECT_NEAR(level(plan, 2.3), 100, 1);
    EXPECT_NEAR(level(planOf(shot, true, 2), 2.15), 100, 1);
}

/// Where the caption of a plan stands, a second into it.
Point middleOf(const Plan& plan, const CaptionCue& cue) {
    CaptionCache captions;
    const auto image =
        Renderer::caption(cue, cue.start + 1, plan.shots[0].shot, plan.framing({}), plan, captions);
    return image ? image->extent().middle() : Point{-1, -1};
}

TEST(Renderer, aCaptionStandsOnTheSeamOrWhereItsStyleOrMovePutsIt) {
    auto plan = planOf({});
    CaptionCue cue{.start = 0, .end = 4, .text = "hello"};
    plan.style.y = 0.7;
    const auto stands = [&](double x, double y) {
        const auto middle = middleOf(plan, cue);
        return std::abs(middle.x - x * plan.frame.width) <= 1 &&
               std::abs(middle.y - y * plan.frame.height) <= 1;
    };
    EXPECT_TRUE(stands(0.5, 0.5)); // the default framing's seam
    plan.shots[0].shot.split = 0.4;
    EXPECT_TRUE(stands(0.5, 0.4));
    plan.style.seam.reset();
    EXPECT_TRUE(stands(0.5, 0.4)) << "also where the style leaves it out";
    plan.style.seam = false;
    EXPECT_TRUE(stands(0.5, 0.7));
    plan.style.seam = true;
    plan.shots[0].shot.layout = Shot::Layout::face;
    EXPECT_TRUE(stands(0.5, 0.7));
    plan.style.y.reset();
    EXPECT_TRUE(stands(0.5, 0.3));
    cue.move = Move{.from = Placement{.x = 0.25, .y = 0.9}};
    EXPECT_TRUE(stands(0.25, 0.9));
    cue.move->to = Placement{.x = 0.75};
    cue.move->ease = "linear";
    EXPECT_TRUE(stands(0.375, 0.9));
    cue.move.reset();
    plan.shots[0].shot.layout = Shot::Layout::split;
    plan.frame = {1920, 1080};
    EXPECT_TRUE(stands(0.5, 0.3)); // no seam in a lying frame
}

TEST(Renderer, onlyACaptionThatLiesStraightAndStillIsPutOnWholePixels) {
    const auto plan = planOf({});
    const Point place{270.25, 600 + 1.0 / 3}; // beside whole pixels, and beside their middles
    const Placement aside{.x = place.x / wide, .y = place.y / high};
    Placement turned = aside, large = aside;
    turned.rotation = 10;
    large.scale = 1.5;
    const auto extent = [&](const Move& move) {
        CaptionCache captions;
        const CaptionCue cue{.start = 0, .end = 4, .text = "hello", .move = move};
        const auto image = Renderer::caption(cue, 0.1, plan.shots[0].shot, {}, plan, captions);
        return image ? image->extent() : Rect();
    };
    const auto still = extent({.from = aside, .enter = "none"});
    if (still.empty()) GTEST_SKIP() << "No font is installed.";
    EXPECT_EQ(still.x, std::floor(still.x));
    EXPECT_EQ(still.y, std::floor(still.y));
    EXPECT_NEAR(still.middle().x, place.x, 1);
    EXPECT_NEAR(still.middle().y, place.y, 1);
    const std::pair<const char*, Move> others[] = {
        {"turned", {.from = turned, .enter = "none"}},
        {"enlarged", {.from = large, .enter = "none"}},
        {"on its way", {.from = aside, .to = aside, .enter = "none"}},
        {"coming in", {.from = aside, .enter = "rise"}},
    };
    for (const auto& [how, move] : others) {
        const auto middle = extent(move).middle();
        EXPECT_NEAR(middle.x, place.x, 1e-6) << how;
        if (move.enter != "none") continue;
        EXPECT_NEAR(middle.y, place.y, 1e-6) << how;
    }
}

}
}
