#include "app/desktop/viewer/PickedPlace.h"
#include "app/desktop/viewer/PictureHit.h"
#include "core/render/stage/PlaybookMedia.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// A plan of one shot, its captions at a quarter of the height, for things to be laid over.
struct Pictured : testing::Test {
    Pictured() {
        plan.frame = {400, 800};
        plan.shots = {{.start = 0, .end = 20, .shot = {.layout = Shot::Layout::content}}};
        plan.style = CaptionStyle::builtIn().front();
        plan.style.y = 0.25;
        plan.style.seam = false;
    }
    /// Lays a shape over the picture from `start` to `end`.
    Pick lay(const std::string& shape, double start = 2, double end = 6, std::optional<Move> move = {}) {
        const Book book{Playbook::decode(R"({"name": "a", "length": 4, "timing": {"in": 0, "out": 0},
                                             "layers": [{"color": "FF0000", )" +
                                         shape + "}]}"),
                        {}};
        plan.overlays.push_back(
            {.start = start, .end = end, .overlay = {.move = move}, .book = book, .values = book.values({})});
        return {Pick::Kind::overlay, plan.overlays.back().overlay.id, {}};
    }
    Pick say(const std::string& text, double start, double end, const UUID& line, std::optional<int> piece) {
        plan.cues.push_back({.start = start, .end = end, .text = text, .line = line, .piece = piece});
        return {Pick::Kind::caption, line, piece};
    }
    std::string natural(const Pick& pick, double time = 3) {
        const auto found = PickedPlace::measure({plan, pick, time}, media);
        if (!found) return "none";
        const auto& rect = found->natural;
        return fmt::format("{} {} {}x{}, {}", rect.x(), rect.y(), rect.width(), rect.height(), found->restY);
    }
    std::string topmost(double x, double y, double time = 3) {
        const auto found = PictureHit::topmost({plan, time, {x, y}}, media);
        if (!found) return "none";
        if (found->kind == Pick::Kind::caption) return "caption";
        for (std::size_t at = 0; at < plan.overlays.size(); ++at)
            if (plan.overlays[at].overlay.id == found->id) return std::to_string(at);
        return "?";
    }

    Plan plan;
    PlaybookMedia media;
};

using PickedPlaceTest = Pictured;
using PictureHitTest = Pictured;

const std::string square = R"("shape": "rect", "w": 0.2, "h": 0.1)";

}

TEST_F(PickedPlaceTest, isMeasuredAboutTheMiddleAndWithoutItsMove) {
    const auto low = lay(square + R"(, "x": 0.25, "y": 0.75)");
    EXPECT_EQ(natural(low), "-140 160 80x80, 0.5");
    EXPECT_EQ(natural(lay(square + R"(, "x": 0.25, "y": 0.75)", 1, 5, Move{.from = Placement{.x = 0.9}})),
              natural(low));
    EXPECT_EQ(natural(lay(R"("shape": "rect", "w": 0.01, "h": 0.1, "x": 0.75)")), "92 -40 16x80, 0.5")
        << "none too thin to be taken";
    EXPECT_EQ(natural(lay(R"("shape": "rect", "w": 0)")), "-200 -400 400x800, 0.5");
    EXPECT_EQ(natural({Pick::Kind::overlay, UUID::make(), {}}), "none");
    EXPECT_EQ(natural({Pick::Kind::sound, low.id, {}}), "none");
}

TEST_F(PickedPlaceTest, goesTheWayOfItsMoveWhileItIsOn) {
    lay(square);
    const Placement from{.x = 0.2, .scale = 2, .rotation = 10};
    const auto pick = lay(square, 2, 6, Move{.from = from, .to = Placement{.x = 0.6}, .ease = "linear"});
    const auto placed = PickedPlace::placed(plan, pick, 3);
    ASSERT_TRUE(placed);
    EXPECT_EQ(placed->share, 0.25);
    EXPECT_FALSE(PickedPlace::placed(plan, pick, 1.9));
    EXPECT_FALSE(PickedPlace::placed(plan, pick, 6));
    const QRectF natural(-5, -7, 20, 30);
    const auto box = PickedPlace::box({natural, 0.75}, *placed, plan.frame);
    EXPECT_EQ(box.natural, natural);
    EXPECT_NEAR(box.pivot.x(), 0.3 * 400, 1e-9);
    EXPECT_NEAR(box.pivot.y(), 0.75 * 800, 1e-9) << "where it stands while its move does not say";
    EXPECT_NEAR(box.turn, 10, 1e-9);
    EXPECT_NEAR(box.scale, 2, 1e-9);
}

TEST_F(PickedPlaceTest, aCaptionIsTheOneOfItsPieceAndElseOfTheTime) {
    const auto line = UUID::make();
    say("another", 1, 2, UUID::make(), {});
    const auto first = say("one", 2, 3, line, 0), second = say("two", 3, 4, line, 1);
    const Pick whole{Pick::Kind::caption, line, {}};
    const auto text = [&](const Pick& pick, double time) {
        const auto* cue = PickedPlace::cueOf(plan, pick, time);
        return cue ? cue->text : "";
    };
    EXPECT_EQ(text(first, 3.5), "one");
    EXPECT_EQ(text(second, 2.5), "two");
    EXPECT_EQ(text(whole, 3), "two");
    EXPECT_EQ(text(whole, 9), "one");
    EXPECT_EQ(text({Pick::Kind::overlay, line, {}}, 3), "");
    EXPECT_TRUE(PickedPlace::placed(plan, second, 3));
    EXPECT_FALSE(PickedPlace::placed(plan, second, 4));
    EXPECT_FALSE(PickedPlace::placed(plan, second, 2.9));

    plan.cues.back().move = Move{.from = Placement{.y = 0.9}};
    const auto found = PickedPlace::measure({plan, second, 3.5}, media);
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->restY, 0.25, 0.02) << "as if nobody had moved it";
    EXPECT_TRUE(found->natural.contains(QPointF()));
    EXPECT_LT(found->natural.width(), 300);
    EXPECT_NEAR(PickedPlace::placed(plan, second, 3.5)->move.from->y.value_or(0), 0.9, 1e-9);
}

TEST_F(PictureHitTest, isWhatLiesOnTopWhereItIsSeen) {
    lay(square);
    lay(square + R"(, "x": 0.6)");
    lay(square, 8, 9);
    EXPECT_EQ(topmost(220, 400), "1");
    EXPECT_EQ(topmost(170, 400), "0");
    EXPECT_EQ(topmost(170, 430), "0");
    EXPECT_EQ(topmost(170, 450), "none");
    EXPECT_EQ(topmost(100, 400), "none");
    EXPECT_EQ(topmost(200, 400, 8.5), "2");
    lay(R"("shape": "ring", "w": 0.9, "h": 0.9)"); // a line round them, clear within
    EXPECT_EQ(topmost(220, 400), "1");
    EXPECT_EQ(topmost(100, 400), "none");
    plan.cues = {{.start = 2, .end = 4, .text = "some words", .line = UUID::make()}};
    EXPECT_EQ(topmost(200, 200), "caption");
    lay(square + R"(, "y": 0.25)");
    EXPECT_EQ(topmost(200, 200), "caption") << "captions lie over what does not cover them";
    plan.overlays.back().overlay.move = Move{.from = Placement{.x = 0.3, .y = 0.8}};
    EXPECT_EQ(topmost(120, 440), "4") << "where its move has it";
}
