#include "core/render/Renderer.h"
#include "tests/render/Samples.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

namespace murbo {
using namespace std::literals;
namespace {

constexpr Size frame{270, 480};

/// A playbook of those layers, without entrance and exit; `more` are further members.
Book book(const std::string& layers, const std::string& more = "") {
    return {Playbook::decode(fmt::format(
                R"({{"name": "a", "length": 10, "timing": {{"in": 0, "out": 0}}{}, "layers": [{}]}})", more,
                layers)),
            {}};
}

std::string filled(const std::string& colour) {
    return fmt::format(R"({{"shape": "rect", "fill": true, "color": "{}"}})", colour);
}

std::string square(const std::string& colour, double x, double y) {
    return fmt::format(R"({{"shape": "rect", "color": "{}", "w": 0.2, "h": 0.1125, "x": {}, "y": {}}})",
                       colour, x, y);
}

PlacedOverlay placed(const Book& book, double start = 0, double end = 10) {
    return {.start = start, .end = end, .book = book, .values = book.values({})};
}

/// A plan of one shot that shows the whole picture, and what is drawn of it.
struct Shown {
    Plan plan;
    std::optional<Image> picture = Image::colour({0, 0, 255}).cropped({0, 0, 640, 360});
    CaptionCache captions;
    PlaybookMedia media;

    Shown() {
        plan.frame = frame;
        plan.shots = {{.start = 0, .end = 10, .shot = {.layout = Shot::Layout::content}}};
        plan.style = CaptionStyle::builtIn().front();
    }
    Shot& shot() { return plan.shots[0].shot; }
    Bitmap drawn(double time) {
        return samples::drawn(Renderer::render(picture, {}, plan, time, captions, media),
                              int(plan.frame.width), int(plan.frame.height));
    }
    /// The colour at a place, shares of the frame, as RRGGBB.
    std::string at(double x, double y, double time = 5) {
        const auto bitmap = drawn(time);
        return fmt::format(
            "{:06X}", samples::pixel(bitmap, int(x * bitmap.width()), int(y * bitmap.height())) & 0xFFFFFF);
    }
    std::string middle(double time = 5) { return at(0.5, 0.5, time); }
};

TEST(OverlayStack, anOverlayIsThereFromItsStartToJustBeforeItsEnd) {
    Shown shown;
    shown.plan.overlays = {placed(book(filled("FF0000")), 2, 4)};
    for (const auto& [time, colour] :
         {std::pair{1.999, "0000FF"}, {2, "FF0000"}, {3.999, "FF0000"}, {4, "0000FF"}})
        EXPECT_EQ(shown.middle(time), colour) << time;
}

TEST(OverlayStack, generatorsLieByTheirRowsUnderAllOthers) {
    Shown shown;
    const std::string generator = R"(, "kind": "generator")";
    shown.plan.overlays = {
        placed(book(square("FFFFFF", 0.2, 0.5))), placed(book(filled("FF0000"), generator)),
        placed(book(filled("00FF00"), generator)), placed(book(square("FFFF00", 0.2, 0.5)))};
    shown.plan.overlays[1].row = 1;
    EXPECT_EQ(shown.middle(), "FF0000");
    EXPECT_EQ(shown.at(0.2, 0.5), "FFFF00") << "the others in the look's order";
    shown.plan.overlays.pop_back();
    EXPECT_EQ(shown.at(0.2, 0.5), "FFFFFF");
}

TEST(OverlayStack, onlyWhatCoversStandsOverTheCaption) {
    Shown shown;
    shown.plan.cues = {{.start = 0, .end = 10, .text = "MMMMMM"}};
    shown.plan.style.y = 0.5;
    shown.plan.style.motion = "none";
    const auto ink = [&] {
        const auto bitmap = shown.drawn(5);
        int count = 0;
        for (int y = 0; y < bitmap.height(); ++y)
            for (int x = 0; x < bitmap.width(); ++x) count += samples::pixel(bitmap, x, y) == 0xFFFFFFFF;
        return count;
    };
    const int bare = ink();
    EXPECT_GT(bare, 300);
    shown.plan.overlays = {placed(book(filled("FF0000")))};
    EXPECT_EQ(ink(), bare);
    shown.plan.overlays.push_back(placed(book(filled("00FF00"), R"(, "cover": true)")));
    shown.plan.overlays.push_back(placed(book(filled("FFFF00"))));
    EXPECT_EQ(ink(), 0);
    EXPECT_EQ(shown.middle(), "00FF00");
}

TEST(OverlayStack, anOverlayMovesAsAWhole) {
    Shown shown;
    auto overlay = placed(book(square("FF0000", 0.5, 0.5) + "," + square("00FF00", 0.7, 0.5)), 2, 6);
    overlay.overlay.move =
        Move{.from = Placement{.x = 0.25, .y = 0.75, .rotation = 90}, .to = Placement{.x = 0.75}};
    shown.plan.overlays = {overlay};
    // A turn of 90 degrees clockwise puts what was to the right below.
    const double below = 0.2 * frame.width / frame.height;
    EXPECT_EQ(shown.at(0.25, 0.75, 2), "FF0000");
    EXPECT_EQ(shown.at(0.25, 0.75 + below, 2), "00FF00");
    EXPECT_EQ(shown.at(0.5, 0.75 + below, 4), "00FF00") << "half-way";
    EXPECT_EQ(shown.at(0.25, 0.75, 4), "0000FF");
    shown.plan.overlays[0].overlay.move = Move{.from = Placement{.scale = 2}};
    EXPECT_EQ(shown.at(0.33, 0.5, 4), "FF0000");
    EXPECT_EQ(shown.at(0.72, 0.5, 4), "00FF00");
    EXPECT_EQ(shown.at(0.05, 0.5, 4), "0000FF") << "what lies below stays where it is";
    shown.plan.overlays[0].overlay.move->from->scale = 0;
    EXPECT_EQ(shown.middle(), "0000FF");
}

TEST(OverlayStack, lettersThatAMoveEnlargesStaySharp) {
    Shown shown;
    const auto halfTones = [&](const std::string& more, double scale) {
        auto overlay = placed(book(R"({"text": "Wow", "size": 24, "outline": "")"s + more + "}"));
        overlay.overlay.move = Move{.from = Placement{.scale = scale}};
        shown.plan.overlays = {overlay};
        const auto drawn = shown.drawn(5);
        int count = 0;
        for (int y = 0; y < drawn.height(); ++y)
            for (int x = 0; x < drawn.width(); ++x) count += std::abs(drawn.row(y)[x * 4 + 1] - 128) < 100;
        return count;
    };
    EXPECT_GT(halfTones("", 4), 100);
    EXPECT_LT(halfTones("", 4), halfTones(R"(, "scale": 4)", 1) * 2.2);
}

TEST(OverlayStack, whatLiesBelowIsThePictureSoFar) {
    Shown shown;
    const Book inverted = book(R"({"slot": "under", "fill": true, "effects": ["invert"]})");
    shown.plan.overlays = {placed(inverted), placed(book(square("FF0000", 0.5, 0.5))), placed(inverted)};
    EXPECT_EQ(shown.middle(), "00FFFF");
    EXPECT_EQ(shown.at(0.1, 0.1), "0000FF") << "twice";
    shown.plan.overlays[2].overlay.move = Move{.from = Placement{.scale = 0.5}};
    EXPECT_EQ(shown.middle(), "00FFFF") << "moved, too, it sees what lies below";
    EXPECT_EQ(shown.at(0.1, 0.1), "FFFF00");
}

TEST(OverlayStack, aZoomOpensNoSeamBetweenPanels) {
    Shown shown;
    shown.shot().layout = Shot::Layout::split;
    shown.shot().split = 0.4;
    for (const char* scale : {"1.07", "1.13", "1.22"}) {
        shown.plan.overlays = {placed(book(R"({"slot": "under", "fill": true, "scale": )"s + scale + "}"))};
        const auto bitmap = shown.drawn(5);
        for (int y = 0; y < bitmap.height(); ++y)
            EXPECT_EQ(samples::pixel(bitmap, 100, y) & 0xFFFFFF, 0x0000FFu) << scale << ", row " << y;
    }
}

TEST(OverlayStack, aFrameShowsOnlySoMuchOfWhatIsCostly) {
    Shown shown;
    const std::string comic = R"(, "effects": ["comic", "comic", "comic", "comic", "comic", "comic"])";
    std::string layers;
    for (int i = 0; i < 200; ++i)
        layers +=
            R"({"particles": "confetti", "count": 200}, {"slot": "under", "opacity": 0.5)" + comic + "},";
    shown.plan.overlays.assign(16, placed(book(layers + filled("00FF00")))); // minutes, drawn as it stands
    const auto first = shown.drawn(5);
    EXPECT_TRUE(same(shown.drawn(5), first)) << "a frame takes nothing from the next";
}

TEST(OverlayStack, ofThoseThatShowWhatLiesBelowTheTopmostAreDrawn) {
    Shown shown;
    const Book inverted = book(R"({"slot": "under", "fill": true, "effects": ["invert"]})");
    shown.plan.overlays.assign(17, placed(inverted));
    EXPECT_EQ(shown.middle(), "0000FF");
    shown.plan.overlays.push_back(placed(book(square("FF0000", 0.5, 0.5))));
    EXPECT_EQ(shown.middle(), "FF0000");
    shown.plan.overlays.assign(101, placed(book(square("00FF00", 0.9, 0.9))));
    shown.plan.overlays[0] = placed(book(square("FF0000", 0.5, 0.5)));
    EXPECT_EQ(shown.middle(), "0000FF") << "a hundred at once";
    shown.plan.overlays.pop_back();
    EXPECT_EQ(shown.middle(), "FF0000");
}

TEST(Renderer, transitionsPlayUnderOverlays) {
    Shown shown;
    shown.shot().transition = "dip";
    shown.plan.overlays = {placed(book(square("FF0000", 0.5, 0.5)))};
    EXPECT_EQ(shown.middle(0), "FF0000");
    EXPECT_EQ(shown.at(0.1, 0.1, 0), "000000");
}

TEST(Renderer, aGeneratedStretchTakesThePlaceOfFootage) {
    Shown shown;
    shown.plan.generated = {
        placed(book(square("FF0000", 0.5, 0.5) + R"(,{"slot": "picture", "w": 0.1})"), 2, 4)};
    EXPECT_EQ(shown.middle(3), "FF0000") << "no footage in it, whatever its moment shows";
    EXPECT_EQ(shown.at(0.1, 0.1, 3), "000000");
    EXPECT_EQ(shown.middle(4), "0000FF");
}

TEST(Renderer, aLayoutLaysOutUprightFramesWithFootage) {
    Shown shown;
    shown.shot().playbook = "mine";
    shown.shot().values = Values{{"down", "0.25"}};
    shown.plan.layouts.emplace(
        "mine", book(filled("00FF00") + R"(,{"slot": "content", "w": 0.5, "y": "$down"})",
                     R"(, "kind": "layout", "captions": "1-$down", "params": {"down": {"type": "number"}})"));
    EXPECT_EQ(shown.at(0.5, 0.25), "0000FF");
    EXPECT_EQ(shown.at(0.5, 0.6), "00FF00");

    const CaptionCue cue{.start = 0, .end = 10, .text = "MMMMMM"};
    const auto height = [&] {
        const auto image = Renderer::caption(cue, 5, shown.shot(), {}, shown.plan, shown.captions);
        return image->extent().middle().y / shown.plan.frame.height;
    };
    EXPECT_NEAR(height(), 0.75, 0.003);
    shown.shot().values = Values{{"down", "far"}};
    EXPECT_NEAR(height(), 0.3, 0.003) << "where no number comes of it";
    shown.plan.layouts.at("mine") = book(filled("00FF00"), R"(, "kind": "layout")");
    shown.shot().layout = Shot::Layout::split;
    EXPECT_NEAR(height(), 0.3, 0.003) << "no seam of a split that isn't there";
    shown.plan.layouts.clear();
    EXPECT_NEAR(height(), 0.5, 0.003) << "a layout that is found nowhere";

    shown.plan.layouts.emplace("mine", book(filled("00FF00"), R"(, "kind": "layout")"));
    shown.picture.reset();
    EXPECT_EQ(shown.middle(), "000000");
    shown.picture = Image::colour({0, 0, 255}).cropped({0, 0, 640, 360});
    for (const Size lying : {Size{480, 270}, Size{270, 270}}) {
        shown.plan.frame = lying;
        EXPECT_EQ(shown.middle(), "0000FF");
    }
}

}
}
