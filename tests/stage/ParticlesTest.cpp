#include "core/render/stage/Particles.h"
#include "platform/image/ImageNode.h"
#include "tests/stage/Staged.h"

#include <cmath>

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr double width = 270;
constexpr double height = 480;

/// A layer of particles on a stage of its own.
struct Scatter {
    Staged stage{width, height};
    PlacedOverlay placed;
    Playbook::Layer layer;
    double life = 2;

    explicit Scatter(const std::string& drift, std::int64_t count = 200) {
        layer.drift = drift;
        layer.count = count;
    }
    Image at(double held, const std::string& text = "confetti", double size = 20) {
        const Stage::Scene scene{stage.below, std::nullopt, stage.framing, stage.plan, stage.media};
        return Stage::Particles::scatter(text, {placed, layer, 0, held, life, scene}, size);
    }
    Bitmap drawn(double held, const std::string& text = "confetti") { return stage.drawn(at(held, text)); }
};

/// How many pictures lie over each other, and their extents.
std::vector<Rect> pieces(Image image) {
    std::vector<Rect> all;
    while (const auto* over = std::get_if<ImageNode::Over>(&image.node()->kind)) {
        all.push_back(over->above->extent);
        image = Image(over->below);
    }
    if (!image.empty()) all.push_back(image.extent());
    return all;
}

double opacityOf(const Image& image) {
    const auto* fade = std::get_if<ImageNode::Fade>(&image.node()->kind);
    return fade ? fade->opacity : 1;
}

}

TEST(Particles, areTheSameWheneverTheyAreDrawn) {
    for (const char* drift : {"rise", "fall", "burst", "float", "no such drift"}) {
        Scatter scatter(drift, 40);
        const Bitmap early = scatter.drawn(0.3);
        const Bitmap late = scatter.drawn(1.4);
        EXPECT_FALSE(same(early, late)) << drift;
        EXPECT_TRUE(same(Scatter(drift, 40).drawn(1.4), late)) << drift;
        EXPECT_TRUE(same(scatter.drawn(0.3), early)) << drift;
        scatter.layer.seed = 7;
        EXPECT_TRUE(same(scatter.drawn(0.3), early)) << "7 is the usual seed";
        scatter.layer.seed = -8;
        EXPECT_FALSE(same(scatter.drawn(0.3), early)) << drift;
    }
    EXPECT_TRUE(same(Scatter("no such drift").drawn(1), Scatter("rise").drawn(1)));
}

TEST(Particles, setOffOneAfterTheOtherWithinTheirTime) {
    for (const auto& [life, last] : {std::pair{2.0, 0.8}, {10.0, 1.2}}) {
        Scatter scatter("float");
        scatter.life = life;
        const auto set = [&](double held) { return int(pieces(scatter.at(held)).size()); };
        EXPECT_NEAR(set(last / 2), 100, 25);
        EXPECT_LT(set(last * 0.97), 200);
        EXPECT_EQ(set(last), 200);
    }
    const auto count = [](std::int64_t given) { return pieces(Scatter("float", given).at(1)).size(); };
    EXPECT_EQ(count(-3), 1u);
    EXPECT_EQ(count(0), 1u);
    EXPECT_EQ(count(500), 200u);
}

TEST(Particles, goWhereTheirDriftTakesThem) {
    Scatter scatter("burst");
    scatter.layer.x = Playbook::Num(0.25);
    scatter.layer.y = Playbook::Num(0.75);
    scatter.life = 0.0001; // all at once
    for (const Rect& piece : pieces(scatter.at(0.001))) {
        EXPECT_NEAR(piece.middle().x, width * 0.25, 2);
        EXPECT_NEAR(piece.middle().y, height * 0.75, 2);
    }
    const auto middle = [&](const char* drift, double held) {
        Scatter other(drift);
        other.life = 0.0001;
        double sum = 0;
        for (const Rect& piece : pieces(other.at(held))) sum += piece.middle().y / 200;
        return sum;
    };
    EXPECT_NEAR(middle("fall", 1), 0.4 * height - 20, 8);
    EXPECT_NEAR(middle("rise", 1), (1 - 0.345) * height + 20, 8);
    EXPECT_NEAR(middle("float", 1), 0.5 * height, 12);
    EXPECT_GT(middle("burst", 2), middle("burst", 1) + height * 0.5) << "gravity";
    // What rises fades over the top quarter of the frame.
    Scatter rising("rise");
    Image left = rising.at(2);
    int faded = 0;
    while (const auto* over = std::get_if<ImageNode::Over>(&left.node()->kind)) {
        const double y = over->above->extent.middle().y;
        EXPECT_NEAR(opacityOf(Image(over->above)), std::clamp(y / (0.25 * height), 0.0, 1.0), 1e-3);
        faded += opacityOf(Image(over->above)) < 1;
        left = Image(over->below);
    }
    EXPECT_GT(faded, 5);
}

TEST(Particles, drawOnlyTheGlyphsThatTheyShow) {
    std::string names;
    for (int i = 0; i < 5000; ++i) names += fmt::format("n{},", i);
    Scatter scatter("float", 5);
    const auto shown = scatter.drawn(1, names);
    Stage::Budget budget;
    const Stage::Scene scene{Image(), std::nullopt, {}, scatter.stage.plan, scatter.stage.media, &budget};
    Stage::Particles::scatter(names, {scatter.placed, scatter.layer, 0, 1, 2, scene}, 20);
    EXPECT_EQ(Stage::Budget().glyphs - budget.glyphs, 5);
    EXPECT_TRUE(same(scatter.drawn(1, "n0,n1,n2,n3,n4"), shown));
    EXPECT_FALSE(same(scatter.drawn(1, "n0,n1"), shown));
}

TEST(Particles, neverStopTheProgram) {
    Scatter scatter("fall");
    for (const char* none : {"", ",", " , ,\t", "\xEE\x80\x80"})
        EXPECT_EQ(pieces(scatter.at(1, none)).size(), 0u) << none;
    EXPECT_EQ(pieces(scatter.at(1, "A, ,B,")).size(), 200u);
    const double nan = std::nan("");
    for (const double wrong : {nan, 1e308, -1e308, HUGE_VAL, -HUGE_VAL}) {
        for (const char* drift : {"rise", "fall", "burst", "float"}) {
            Scatter hostile(drift, 3);
            hostile.stage.drawn(hostile.at(wrong, "confetti"));
            hostile.stage.drawn(hostile.at(1, "A", wrong));
            hostile.life = wrong;
            hostile.stage.drawn(hostile.at(1, "confetti", 20));
        }
    }
}
