#include "app/desktop/captions/PresetPictures.h"
#include "core/model/CaptionPresets.h"
#include "tests/desktop/SpokenVideo.h"

using namespace murbo;

namespace {

PresetPictures::PresetWish wishOf(const SpokenVideo& shown) {
    PresetPictures::PresetWish wish;
    wish.video = *shown.editor.video();
    wish.project = shown.editor.project();
    wish.missing = {shown.source};
    wish.styles = CaptionPresets::of(wish.project);
    for (auto& style : wish.styles) style = style.over(CaptionStyle::builtIn()[0]);
    wish.size = {140, 81};
    return wish;
}

/// How many points of a picture are bright.
int bright(const QImage& picture) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) count += qGray(picture.pixel(x, y)) > 160;
    return count;
}

}

TEST(PresetPictures, showTheWordsInEachStyle) {
    const SpokenVideo shown;
    const auto wish = wishOf(shown);
    const auto made = PresetPictures::drawn(wish);
    ASSERT_EQ(made.size(), 5);
    for (const auto& picture : made) {
        EXPECT_EQ(picture.size(), wish.size);
        EXPECT_GT(bright(picture), 30) << "words on a black frame";
    }
    EXPECT_NE(made["pop"], made["clean"]);
}

TEST(PresetPictures, standOnAPlainGroundWhereNothingIsSaidOrShown) {
    const SpokenVideo shown;
    auto wish = wishOf(shown);
    wish.video.reset();
    const auto none = PresetPictures::drawn(wish);
    EXPECT_GT(bright(none["pop"]), 30);
    wish = wishOf(shown);
    wish.project.transcripts.clear();
    EXPECT_EQ(PresetPictures::drawn(wish)["pop"], none["pop"]);
    wish.styles = {CaptionStyle{.id = "empty"}};
    wish.styles[0].size = 0;
    EXPECT_EQ(PresetPictures::drawn(wish)["empty"].size(), wish.size) << "nothing to draw, and no fault";
}

TEST(PresetPictures, areCutOutWhereTheStylePutsTheWords) {
    const SpokenVideo shown;
    const auto plan = Plan::video(*shown.editor.video(), shown.editor.project(), "", std::nullopt);
    CaptionStyle style;
    style.seam = false;
    for (const double y : {0.0, 0.3, 1.0}) {
        style.y = y;
        const auto part = PresetPictures::shownPart(plan, 1, style, {140, 81});
        EXPECT_GE(part.y, 0);
        EXPECT_LE(part.y + part.height, plan.frame.height + 1e-6);
        EXPECT_NEAR(part.width / part.height, 140.0 / 81, 1e-6);
        if (y == 0.3) {
            EXPECT_NEAR(part.y + part.height / 2, 0.3 * plan.frame.height, 1);
        }
    }
    const auto middle = [&](Shot::Layout layout, std::optional<double> split) {
        auto cutOut = plan;
        cutOut.shots[0].shot.layout = layout;
        cutOut.shots[0].shot.split = split;
        const auto part = PresetPictures::shownPart(cutOut, 1, {.y = 0.7}, {140, 81});
        return std::round((part.y + part.height / 2) / plan.frame.height * 1000) / 1000;
    };
    EXPECT_EQ(middle(Shot::Layout::split, {}), 0.5) << "by the seam";
    EXPECT_EQ(middle(Shot::Layout::split, 0.4), 0.4);
    EXPECT_EQ(middle(Shot::Layout::face, 0.4), 0.7) << "which only a split has";
}
