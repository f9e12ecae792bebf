#include "tests/stage/Staged.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

const std::string impact =
    R"({"slot": "under", "fill": true, "keys": [{"t": 0, "scale": 1.22}, {"t": 3, "scale": 1}]},
       {"slot": "under", "fill": true, "keys": [{"t": 0, "scale": 1.22, "opacity": 0.8}, {"t": 3, "opacity": 0.2}]})";

}

TEST(Stage, thatCantBeDrawnAreLeftOutAndTheOthersStay) {
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
        overlay.values = Values{{"x", "1e308"}};
        const auto frame = stage.drawn(overlay);
        EXPECT_EQ(seen(frame, {{40, 10}, {40, 150}}), ".#") << broken;
    }
    EXPECT_EQ(seen(stage.drawn(""), {{0, 0}}), ".");
}

TEST(Stage, showWhatLiesBelowChanged) {
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
TEST(Stage, drawWhatLiesBelowOnceHoweverDeepTheyLie) {
    for (const std::string& layers :
         {impact, std::string(R"({"slot": "under", "fill": true, "scale": 0.9})"),
          std::string(R"({"slot": "under", "fill": true, "opacity": 0.5, "hold": "shake"})")}) {
        Staged stage(64, 64, {90, 120, 30});
        for (int i = 0; i < 40; ++i) stage.below = stage.image(Staged::placed(layers), 1);
        EXPECT_NE(at(stage.drawn(stage.below), 32, 32), black);
    }
}

TEST(Stage, ofWhichThereAreTooManyShowTheUndermost) {
    const Staged stage(32, 32);
    auto many = Staged::placed(rect(R"("opacity": 0.5)"));
    auto& layers = many.book.edit().playbook.layers;
    layers.resize(100'000, layers.front());
    Stage::Budget budget;
    PlaybookMedia media;
    stage.drawn(
        Stage::draw(many, 1, {stage.below, std::nullopt, {}, stage.plan, media, &budget}, stage.below));
    EXPECT_EQ(Stage::Budget().layers - budget.layers, 500);
}

TEST(Stage, slowedDownOrBegunLaterShowTheSameLater) {
    const Staged stage(60, 60);
    const std::string layers =
        R"({"particles": "confetti", "drift": "fall", "count": 40, "w": 0.1, "from": 0.5},
        {"shape": "ring", "w": 0.5, "hold": "wobble", "keys": [{"t": 0, "x": 0}, {"t": 2, "x": 1}]})";
    auto slow = Staged::placed(layers, 6);
    slow.overlay.stretch = true;
    auto late = Staged::placed(layers);
    late.start = 7;
    late.end += 7;
    for (const double time : {0.6, 1.0, 1.5}) {
        EXPECT_TRUE(same(stage.drawn(slow, 2 * time), stage.drawn(layers, time))) << time;
        EXPECT_TRUE(same(stage.drawn(late, 7 + time), stage.drawn(layers, time))) << time;
    }
}
