#include "core/playbooks/Hold.h"
#include "core/render/stage/Holds.h"
#include "tests/stage/Staged.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

TEST(StagedLayer, standsWhereItsNumbersSay) {
    const Staged stage(80, 160);
    // Just inside and just outside of each side.
    const std::vector<std::pair<int, int>> edges{{0, 100}, {39, 139}, {40, 120}, {20, 99}, {20, 140}};
    EXPECT_EQ(seen(stage.drawn(rect(R"("x": 0.25, "y": 0.75)")), edges), "##...");
    EXPECT_EQ(seen(stage.drawn(rect(R"("x": "$x", "y": 0.5)")), {{20, 60}, {59, 99}, {19, 60}}), "##.")
        << "a parameter without a value is the default";
    EXPECT_EQ(seen(stage.drawn(rect(R"("scale": 2)")), {{0, 40}, {79, 119}, {40, 39}, {40, 120}}), "##..");
    EXPECT_EQ(seen(stage.drawn(R"({"shape": "rect", "w": 0.9, "h": 0.05, "rotation": 45})"),
                   {{60, 100}, {20, 60}, {60, 60}, {20, 100}}),
              "##..")
        << "clockwise: what pointed right points down";
    EXPECT_EQ(
        seen(stage.drawn(R"({"shape": "rect", "fill": true, "x": 0.9, "scale": 0.1})"), {{0, 0}, {79, 159}}),
        "##")
        << "what fills the frame stays";
    EXPECT_EQ(seen(stage.drawn(rect(R"("scale": 1e9)")), {{0, 0}, {79, 159}}), "##")
        << "zoomed into without end";
    EXPECT_EQ(at(stage.drawn(rect(R"("opacity": 0.5)")), 40, 80), "808080");
    EXPECT_EQ(at(stage.drawn(rect(R"("opacity": 0.5, "color": "FF0000", "blend": "screen")")), 40, 80),
              "800000");
}

TEST(StagedLayer, comesAndGoesAndMovesByItsTimes) {
    const Staged stage(80, 160);
    const auto timed = Staged::placed(rect(R"("from": 1, "to": 2)"));
    for (const auto& [time, colour] : {std::pair{0.9, black}, {1.0, white}, {2.0, white}, {2.1, black}})
        EXPECT_EQ(at(stage.drawn(timed, time), 40, 80), colour) << time;

    const auto keyed = Staged::placed(
        rect(R"("x": 0.9, "from": 1, "keys": [{"t": 0, "x": 0}, {"t": 1, "x": 1, "ease": "linear"}])"));
    EXPECT_EQ(seen(stage.drawn(keyed, 1), {{0, 80}, {19, 80}, {21, 80}}), "##.")
        << "keys count from the layer's start";
    EXPECT_EQ(seen(stage.drawn(keyed, 1.5), {{18, 80}, {21, 80}, {58, 80}, {61, 80}}), ".##.");

    const auto entering =
        Staged::placed(rect(R"("x": 0.5, "in": "slide-up", "out": "wipe")"), 3, R"({"in": 0.4, "out": 0.4})");
    EXPECT_EQ(seen(stage.drawn(entering, 0.2), {{40, 60}, {40, 71}, {40, 73}, {40, 111}}), "..##")
        << "still below";
    EXPECT_EQ(seen(stage.drawn(entering, 1), {{20, 60}, {59, 99}}), "##");
    EXPECT_EQ(seen(stage.drawn(entering, 2.8), {{20, 80}, {52, 80}, {57, 80}}), "##.") << "from the right";
}

TEST(StagedLayer, movesWithItsHoldFromWhereItStands) {
    const Staged stage(80, 160);
    for (const auto word : rawTexts(Hold{})) {
        const auto moved = Stage::Holds::at(*fromRawText<Hold>(word), 0.7, 0);
        const auto layer = [&](const Movement& by, std::string_view hold) {
            return stage.drawn(
                rect(fmt::format(R"("from": 1, "x": {}, "y": {}, "rotation": {}, "scale": {}, "hold": "{}")",
                                 0.4 + by.dx / 80, 0.6 + by.dy / 160, 10 + by.rotation, 0.8 * by.scale,
                                 hold)),
                1.7);
        };
        const auto held = layer({}, word), expected = layer(moved, "none");
        for (int y = 0; y < 160; ++y)
            for (int x = 0; x < 80; ++x)
                EXPECT_NEAR(held.row(y)[x * 4], expected.row(y)[x * 4], 2) << word << x << ", " << y;
    }
}

TEST(StagedLayer, thatStandsStillLiesOnWholePixels) {
    const Staged stage(81, 161);
    for (const char* place : {"0.301", "0.377", "0.5", "0.62"}) {
        const auto frame = stage.drawn(rect(R"("x": )" + std::string(place) + R"(, "y": )" + place));
        for (int x = 0; x < 81; ++x) {
            const auto pixel = at(frame, x, int(161 * std::atof(place)));
            EXPECT_TRUE(pixel == white || pixel == black) << pixel << " at " << x << " for " << place;
        }
    }
}

TEST(StagedLayer, thatIsMixedHidesNothing) {
    const Staged stage(20, 20, {200, 100, 50});
    EXPECT_EQ(
        at(stage.drawn(R"({"shape": "rect", "fill": true, "color": "808080", "blend": "multiply"})"), 9, 9),
        "643219");
    EXPECT_EQ(at(stage.drawn(R"({"shape": "rect", "fill": true, "color": "808080"})"), 9, 9), "808080");
}

TEST(StagedLayer, atAnAngleHidesOnlyWhatItCovers) {
    const Staged stage(80, 80);
    const auto wide = [&](const std::string& place) {
        return stage.drawn(R"({"shape": "rect", "w": 4, "h": 1, "rotation": 10, )" + place + "}");
    };
    const std::vector<std::pair<int, int>> ends{{40, 0}, {40, 79}};
    EXPECT_EQ(seen(wide(R"("y": 0)"), ends), "#.");
    EXPECT_EQ(seen(wide(R"("y": 1)"), ends), ".#");
    EXPECT_EQ(seen(stage.drawn(R"({"shape": "rect", "w": 1, "h": 4, "rotation": 10, "x": 0})"),
                   {{0, 40}, {79, 40}}),
              "#.");
    EXPECT_EQ(seen(stage.drawn(R"({"shape": "rect", "w": 1, "h": 4, "rotation": 10, "x": 1})"),
                   {{0, 40}, {79, 40}}),
              ".#");
}
