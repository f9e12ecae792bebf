#include "core/render/stage/Particles.h"
#include "platform/image/ImageNode.h"
#include "tests/stage/Staged.h"

#include <cmath>

#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace murbo;
using testing::DoubleNear, testing::ElementsAre;

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
    }
    EXPECT_TRUE(same(Scatter("no such drift").drawn(1), Scatter("rise").drawn(1)));
}

TEST(Particles, setOffOneAfterTheOtherWithinTheirTime) {
    Scatter scatter("float");
    EXPECT_NEAR(pieces(scatter.at(0.4)).size(), 100, 25);
    EXPECT_EQ(pieces(scatter.at(0.8)).size(), 200);
    const auto count = [](std::int64_t given) { return pieces(Scatter("float", given).at(1)).size(); };
    EXPECT_EQ(count(-3), 1u);
    EXPECT_EQ(count(0), 1u);
    EXPECT_EQ(count(500), 200u);
}

TEST(Particles, goWhereTheirDriftTakesThem) {
    struct Row {
        const char* drift;
        bool own; ///< a seed, a place and a longer life
        double x, y, width, opacity;
    };
    // Sums of each particle's number times its value, worked out elsewhere.
    for (const auto& [drift, own, x, y, wide, opacity] :
         {Row{"rise", false, 59861.384, 105338.573, 9819.733, 458.153},
          Row{"fall", false, 58330.197, 138353.55, 8849.164, 465},
          Row{"burst", false, 71586.426, 460014.05, 9339.196, 465},
          Row{"burst", true, 25566.929, 454468.241, 9179.45, 465},
          Row{"float", false, 61606.677, 124002.043, 10002.766, 316.042}}) {
        Scatter scatter(drift, 30);
        if (own) scatter.layer.x = Playbook::Num(0.25);
        if (own) scatter.layer.y = Playbook::Num(0.75);
        if (own) scatter.layer.seed = 3, scatter.life = 10;
        Image left = scatter.at(1.9);
        std::array<double, 4> sums{};
        for (int number = 30; number > 0; --number) {
            const auto* over = std::get_if<ImageNode::Over>(&left.node()->kind);
            const Image piece = over ? Image(over->above) : left;
            const Rect extent = piece.extent();
            const std::array values{extent.middle().x, extent.middle().y, extent.width, opacityOf(piece)};
            for (std::size_t at = 0; at < sums.size(); ++at) sums[at] += number * values[at];
            if (over) left = Image(over->below);
        }
        EXPECT_THAT(sums, ElementsAre(DoubleNear(x, 0.1), DoubleNear(y, 0.1), DoubleNear(wide, 0.1),
                                      DoubleNear(opacity, 0.1)))
            << drift;
    }
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
