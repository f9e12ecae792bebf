#include "app/desktop/timeline/TimelineScene.h"
#include "app/desktop/timeline/TimelineTheme.h"
#include "tests/desktop/TimelineVideo.h"

#include <algorithm>

using namespace murbo;

namespace {

template <class Kind>
std::vector<Kind> only(const DrawList& list) {
    std::vector<Kind> found;
    for (const auto& item : list.items)
        if (const auto* one = std::get_if<Kind>(&item)) found.push_back(*one);
    return found;
}

class TimelineSceneTest : public testing::Test {
protected:
    /// What there is of a kind in the rows.
    template <class Kind>
    std::vector<Kind> drawn(const TimelineSpan& span) const {
        return only<Kind>(TimelineScene::rows(layout, span, {}, colours));
    }

    TimelineVideo video;
    TimelineLayout layout = video.layout();
    TimelineColours colours = TimelineTheme::of({});
};

}

TEST_F(TimelineSceneTest, aGeneratedCutIsCoveredByItsPictureInView) {
    const auto cut = std::ranges::find(layout.blocks, TimelineRow::picture, &TimelineBlock::row);
    ASSERT_NE(cut, layout.blocks.end());
    cut->source.reset();
    cut->card = -7;
    for (const double scale : {3.0, 40.0, 900.0}) {
        double right = 0;
        for (const auto& still : drawn<DrawList::Still>({0, scale, 800})) {
            if (still.source != cut->pick.id) continue;
            EXPECT_EQ(still.second, -7);
            EXPECT_NEAR(still.rect.left(), right, 0.01);
            EXPECT_LT(still.rect.left(), 800);
            right = still.rect.right();
        }
        EXPECT_GE(right, std::min(4 * scale - 1.01, 800.0)) << scale;
    }
}

TEST_F(TimelineSceneTest, timesOnTheRulerNeitherTouchNorLieFarApart) {
    for (double scale = 0.01; scale < 1000; scale *= 1.3) {
        const double step = TimelineScene::rulerStep(scale);
        EXPECT_TRUE(step * scale >= 64 || step == 14400) << scale;
        EXPECT_TRUE(step * scale < 160 || step == 0.1) << scale;
    }
}

TEST_F(TimelineSceneTest, anOverlayShowsItsPictureAndItsNameBesideIt) {
    video.editor.change("Pictures", [](Project& project) {
        auto& shown = project.videos.edit()[0];
        const auto picture = [&](double at, const std::optional<Values>& values) {
            shown.look->overlays.edit().push_back({.playbook = "picture",
                                                   .source = shown.cuts[0].source,
                                                   .at = at,
                                                   .length = 2,
                                                   .values = values});
        };
        picture(10, Values{{"media", "map.png"}});
        picture(12, Values{{"media", "rec:31-33"}});
        picture(50, {});
    });
    const Said said(video.editor.project());
    const auto book = [](auto&, auto) {
        return TimelineLayout::BookFacts{"Picture", true, "media", "emoji:x"};
    };
    const auto file = [](const std::string& name) -> std::optional<std::filesystem::path> {
        if (!name.ends_with(".png")) return std::nullopt;
        return "/pictures/" + name;
    };
    layout = TimelineLayout::of({video.editor.project(), *video.editor.video(), {}, said, book, {}, 2, file});
    const TimelineSpan span{0.5, 60, 900}; // the first begins left of what is seen
    const auto files = drawn<DrawList::FilePicture>(span);
    ASSERT_EQ(files.size(), 1);
    EXPECT_EQ(files[0].file, "/pictures/map.png");
    EXPECT_GE(files[0].rect.left(), 0);
    const auto top = layout.track(TimelineRow::layers)->top;
    std::vector<DrawList::Label> names;
    for (const auto& label : drawn<DrawList::Label>(span))
        if (label.rect.top() >= top && label.rect.top() < top + 24) names.push_back(label);
    ASSERT_EQ(names.size(), 3);
    EXPECT_GE(names[0].rect.left(), files[0].rect.right());
    int stills = 0;
    for (const auto& still : drawn<DrawList::Still>(span))
        stills += still.rect.top() < top + 24 && still.second == 31;
    EXPECT_EQ(stills, 1) << "a stretch of the footage shows that";
}
