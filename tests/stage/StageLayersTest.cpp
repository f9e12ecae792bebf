#include "tests/stage/Staged.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <numeric>
#include <random>
#include <thread>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr const char* white = "FFFFFF";
constexpr const char* black = "000000";

std::string rect(const std::string& more) {
    return R"({"shape": "rect", "w": 0.5, "h": 0.25, )" + more + "}";
}

/// Which of some pixels are white.
std::string seen(const Bitmap& bitmap, const std::vector<std::pair<int, int>>& places) {
    std::string result;
    for (const auto& [x, y] : places) result += at(bitmap, x, y) == white ? '#' : '.';
    return result;
}

const std::string impact =
    R"({"slot": "under", "fill": true, "keys": [{"t": 0, "scale": 1.22}, {"t": 3, "scale": 1}]},
       {"slot": "under", "fill": true, "keys": [{"t": 0, "scale": 1.22, "opacity": 0.8}, {"t": 3, "opacity": 0.2}]})";

}

TEST(StageLayers, standWhereTheirNumbersSay) {
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

TEST(StageLayers, comeAndGoAndMoveByTheirTimes) {
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

TEST(StageLayers, thatStandStillLieOnWholePixels) {
    const Staged stage(81, 161);
    for (const char* place : {"0.301", "0.377", "0.5", "0.62"}) {
        const auto frame = stage.drawn(rect(R"("x": )" + std::string(place) + R"(, "y": )" + place));
        for (int x = 0; x < 81; ++x) {
            const auto pixel = at(frame, x, int(161 * std::atof(place)));
            EXPECT_TRUE(pixel == white || pixel == black) << pixel << " at " << x << " for " << place;
        }
    }
}

TEST(StageLayers, thatCantBeDrawnAreLeftOutAndTheOthersStay) {
    const Staged stage(80, 160);
    for (
        const char* broken :
        {R"({"image": "assets/none.png"})", R"({"video": "assets/none.mp4"})", R"({"slot": "face"})",
         R"({"slot": "picture"})", R"({"slot": "$file"})", R"({"slot": "rec:1-2"})", R"({"image": ""})",
         R"({"image": "/dev/zero"})", R"({"shape": "rect", "w": 1e308, "h": 1e308})",
         R"({"shape": "round", "w": "$x*$x", "h": "0-1", "radius": 1e308})",
         R"({"shape": "circle", "w": 0.5, "scale": 1e300, "keys": [{"t": 0, "x": 1e308, "rotation": 1e308}]})",
         R"({"shape": "ring", "w": 1e-300})", R"({"shape": "rect", "scale": 0, "w": 1})",
         R"({"slot": "under", "w": 1e-300, "h": 1e300})", R"({"text": "$none"})",
         R"({"text": "", "size": 1e308})", R"({"text": "Hi", "size": -5})",
         R"({"particles": ",,", "count": -4})", R"({"shape": "rect", "opacity": -3})"}) {
        auto overlay = Staged::placed(std::string(broken) + "," + rect(R"("y": 0.9)"));
        overlay.values = {{"x", "1e308"}};
        const auto frame = stage.drawn(overlay);
        EXPECT_EQ(seen(frame, {{40, 10}, {40, 150}}), ".#") << broken;
    }
    EXPECT_EQ(seen(stage.drawn(""), {{0, 0}}), ".");
}

TEST(StageLayers, keepLettersSharpThatTheyEnlarge) {
    const Staged stage(400, 200, {30, 60, 200});
    const auto large = stage.drawn(R"({"text": "Hi", "size": 120})");
    const auto enlarged = stage.drawn(R"({"text": "Hi", "size": 30, "scale": 4})");
    int letters = 0, apart = 0;
    for (int y = 0; y < 200; ++y)
        for (int x = 0; x < 400; ++x) {
            letters += large.row(y)[x * 4] != 200;
            apart += std::abs(large.row(y)[x * 4] - enlarged.row(y)[x * 4]) > 40;
        }
    EXPECT_GT(letters, 5000);
    EXPECT_LT(apart, letters / 50) << "of " << letters;
}

TEST(StageLayers, showWhatLiesBelowChanged) {
    Staged stage(80, 160);
    stage.below = Staged::box(80, 160, {200, 0, 0}).over(stage.below);
    stage.below = Staged::box(40, 160, {0, 0, 200}).over(stage.below);
    const auto small = stage.drawn(R"({"shape": "rect", "fill": true}, {"slot": "under", "w": 0.5})");
    EXPECT_EQ(at(small, 21, 41), "0000C8");
    EXPECT_EQ(at(small, 58, 118), "C80000");
    EXPECT_EQ(at(small, 10, 80), white);
    const auto disc = stage.drawn(R"({"shape": "rect", "fill": true},
                                     {"slot": "under", "w": 0.5, "h": 0.25, "radius": 0.5})");
    EXPECT_EQ(at(disc, 38, 61), "0000C8") << "round in its own shape, not in the picture's";
    EXPECT_EQ(at(disc, 22, 62), white);
    const auto shaken = stage.drawn(R"({"slot": "under", "fill": true, "scale": 1.9, "hold": "shake"})");
    for (const auto& [x, y] : {std::pair{0, 0}, {79, 0}, {0, 159}, {79, 159}})
        EXPECT_NE(at(shaken, x, y), black) << "no bare corner";
}

/// Each of these shows what lies below twice, which drawn anew each time would take 2⁴⁰ drawings.
TEST(StageLayers, drawWhatLiesBelowOnceHoweverDeepTheyLie) {
    for (const std::string& layers :
         {impact, std::string(R"({"slot": "under", "fill": true, "scale": 0.9})"),
          std::string(R"({"slot": "under", "fill": true, "opacity": 0.5, "hold": "shake"})")}) {
        Staged stage(64, 64, {90, 120, 30});
        for (int i = 0; i < 40; ++i) stage.below = stage.image(Staged::placed(layers), 1);
        EXPECT_NE(at(stage.drawn(stage.below), 32, 32), black);
    }
}

TEST(StageLayers, areDrawnInATimeThatTheirNumberDoesNotSet) {
    const Staged stage(32, 32);
    auto many = Staged::placed(rect(R"("opacity": 0.5)"));
    auto& layers = many.book.edit().playbook.layers;
    layers.resize(100'000, layers.front());
    const auto start = std::chrono::steady_clock::now();
    stage.drawn(many);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

TEST(StageLayers, makeTheSameFramesInAnyOrderAndOnAnyThread) {
    Staged stage(90, 160, {40, 80, 120});
    const auto overlay =
        Staged::placed(impact + R"(, {"shape": "round", "w": 0.4, "in": "pop", "hold": "shake"},
            {"text": "Hi", "in": "spin", "out": "drop", "hold": "wobble"},
            {"particles": "confetti", "drift": "burst"}, {"slot": "under", "effects": ["vhs"], "w": 0.3})",
                       3, R"({"in": 0.5, "out": 0.5})");
    std::vector<int> order(30);
    std::iota(order.begin(), order.end(), 0);
    std::vector<Bitmap> forward;
    for (const int i : order) forward.push_back(stage.drawn(overlay, i / 10.0));
    std::shuffle(order.begin(), order.end(), std::mt19937(7));
    std::vector<std::thread> threads;
    std::array<bool, 2> equal{true, true};
    for (int worker = 0; worker < 2; ++worker)
        threads.emplace_back([&, worker] {
            for (const int i : order)
                equal[worker] = equal[worker] && same(stage.drawn(overlay, i / 10.0), forward[i]);
        });
    for (auto& thread : threads) thread.join();
    EXPECT_TRUE(equal[0] && equal[1]);
}
