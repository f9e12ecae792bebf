#include "core/render/plan/Crop.h"
#include "tests/plan/Made.h"

#include <limits>

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr Size picture{1920, 1080};
constexpr Size tall{1080, 1920};

std::string text(const Rect& rect) {
    return fmt::format("{:.6g},{:.6g} {:.6g}x{:.6g}", rect.x, rect.y, rect.width, rect.height);
}

std::string text(const std::vector<Panel>& panels) {
    std::string result;
    for (const Panel& panel : panels)
        result += (result.empty() ? "" : "; ") + text(panel.source) + " > " + text(panel.frame);
    return result;
}

Shot shot(Shot::Layout layout, std::optional<double> focus = {}) {
    Shot shot;
    shot.layout = layout;
    shot.focus = focus;
    return shot;
}

const Framing halves{.content = {0, 0, 0.5, 1}, .face = {0.5, 0.5, 0.5, 0.5}};

Framing withEyes(double x, double y) {
    Framing framing = halves;
    framing.eyes = Spot{x, y};
    return framing;
}
/// What of the picture fills a tall frame.
std::string filling(Shot::Layout layout, std::optional<double> focus, double zoom,
                    const Framing& framing = halves) {
    return text(Crop::panels(shot(layout, focus), zoom, framing, picture, tall));
}
using enum Shot::Layout;

}

TEST(Crop, aFrameThatIsNotTallTakesTheWholePicture) {
    EXPECT_EQ(text(Crop::panels(shot(Shot::Layout::face, 0.25), 1, halves, picture, {1080, 1080})),
              "210,0 1080x1080 > 0,0 1080x1080");
    EXPECT_EQ(text(Crop::panels(shot(Shot::Layout::face), 2, halves, {1080, 1920}, {1920, 1080})),
              "270,808.125 540x303.75 > 0,0 1920x1080")
        << "zoomed, from the middle";
}

TEST(Crop, contentAndFaceFillTheFrame) {
    EXPECT_EQ(filling(content, {}, 1), "176.25,0 607.5x1080 > 0,0 1080x1920");
    EXPECT_EQ(filling(content, 1, 2), "656.25,270 303.75x540 > 0,0 1080x1920");
    EXPECT_EQ(filling(content, -4, 0.5), "0,0 607.5x1080 > 0,0 1080x1920") << "a zoom below 1 is none";
    EXPECT_EQ(filling(face, {}, 2), "1364.06,607.5 151.875x270 > 0,0 1080x1920") << "a quarter left above";
}
TEST(Crop, eyesStandInTheMiddleFortyTwoPercentDown) {
    const auto eyes = withEyes(0.75, 0.75);
    EXPECT_EQ(filling(face, {}, 2, eyes), "1364.06,696.6 151.875x270 > 0,0 1080x1920");
    EXPECT_EQ(filling(face, {}, 2, withEyes(0.5, 0.99)), "960,810 151.875x270 > 0,0 1080x1920") << "held in";
    EXPECT_EQ(filling(face, 1, 2, eyes), "1768.12,696.6 151.875x270 > 0,0 1080x1920") << "a focus overrules";
}

TEST(Crop, aSplitPutsTheContentOnTop) {
    Shot split = shot(Shot::Layout::split, 0);
    EXPECT_EQ(text(Crop::panels(split, 1, halves, picture, tall)),
              "0,113.333 960x853.333 > 0,0 1080x960; 1136.25,540 607.5x540 > 0,960 1080x960")
        << "focus acts on the content alone";
    split.split = 0.25;
    const auto panels = Crop::panels(split, 1, withEyes(0.6, 0.6), picture, tall);
    EXPECT_EQ(panels[0].frame, (Rect{0, 0, 1080, 480}));
    EXPECT_EQ(panels[1].frame, (Rect{0, 480, 1080, 1440}));
    EXPECT_EQ(text(panels[1].source), "960,540 405x540");
    Shot told = shot(Shot::Layout::face);
    told.playbook = "Side by side";
    EXPECT_EQ(Crop::panels(told, 1, halves, picture, tall).size(), 2) << "a playbook found nowhere";
}

TEST(Crop, staysFiniteOnNumbersThatAreNone) {
    const double strange[] = {
        std::numeric_limits<double>::quiet_NaN(), HUGE_VAL, -HUGE_VAL, 1e308, -1e308, 0, -1};
    for (const double number : strange)
        for (const auto layout : {Shot::Layout::split, Shot::Layout::content, Shot::Layout::face}) {
            Shot odd = shot(layout, number);
            odd.split = number;
            const Framing framing{.content = {number, number, number, number},
                                  .face = {0, number, number, 1},
                                  .split = number,
                                  .eyes = Spot{number, number}};
            for (const Size size : {picture, Size{0, 0}})
                for (const Panel& panel : Crop::panels(odd, number, framing, size, tall)) {
                    for (const double value :
                         {panel.source.x, panel.source.y, panel.source.width, panel.source.height})
                        EXPECT_LE(std::abs(value), 1e6) << number;
                    EXPECT_TRUE(panel.frame.y >= 0 && panel.frame.height >= 0 && panel.frame.bottom() <= 1920)
                        << text(panel.frame);
                }
        }
}
