#include "app/desktop/timeline/TimelineScene.h"
#include "app/desktop/timeline/TimelineTheme.h"
#include "tests/desktop/TimelineVideo.h"

#include <algorithm>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

template <class Kind>
std::vector<Kind> only(const DrawList& list) {
    std::vector<Kind> found;
    for (const auto& item : list.items)
        if (const auto* one = std::get_if<Kind>(&item)) found.push_back(*one);
    return found;
}

}

TEST(TimelineScene, namesStandOnlyWhereThereIsRoom) {
    const TimelineVideo video;
    const auto colours = TimelineTheme::of({});
    const auto wide = only<DrawList::Label>(TimelineScene::rows(video.layout(), {0, 40, 800}, {}, colours));
    const auto narrow = only<DrawList::Label>(TimelineScene::rows(video.layout(), {0, 1, 800}, {}, colours));
    EXPECT_GE(wide.size(), 7);
    EXPECT_TRUE(narrow.empty());
}

TEST(TimelineScene, whatLiesOutsideIsNotDrawn) {
    const TimelineVideo video;
    const auto colours = TimelineTheme::of({});
    for (const double from : {0.0, 3.0, 7.5, 11.0, 30.0}) {
        const TimelineSpan span{from, 100, 300};
        const auto list = TimelineScene::rows(video.layout(), span, {}, colours);
        for (const auto& wave : only<DrawList::Wave>(list)) {
            EXPECT_LE(wave.rect.left(), span.width);
            EXPECT_GE(wave.rect.right(), 0);
        }
        for (const auto& still : only<DrawList::Still>(list)) EXPECT_LT(still.rect.left(), span.width);
    }
}

TEST(TimelineScene, aCutsStripIsCoveredOnceFromEndToEnd) {
    const TimelineVideo video;
    const auto stills =
        only<DrawList::Still>(TimelineScene::rows(video.layout(), {0, 37, 2000}, {}, TimelineTheme::of({})));
    ASSERT_FALSE(stills.empty());
    double right = 0;
    for (const auto& still : stills) {
        EXPECT_NEAR(still.rect.left(), right, 1.01) << "no gap wider than that between cuts";
        right = still.rect.right();
    }
    EXPECT_NEAR(right, 12 * 37, 1.01);
}

TEST(TimelineScene, aCutWithoutItsFileHasASignInPlaceOfPictures) {
    TimelineVideo video;
    auto layout = video.layout();
    const auto signs = [&] {
        return only<DrawList::Symbol>(TimelineScene::rows(layout, {0, 40, 800}, {}, TimelineTheme::of({})));
    };
    const auto before = signs().size();
    for (auto& block : layout.blocks) block.missing = block.row == TimelineRow::picture;
    EXPECT_EQ(signs().size(), before + 3);
    EXPECT_EQ(signs().back().name, "file-question");
}

TEST(TimelineScene, aGeneratedCutIsCoveredByItsPictureInView) {
    TimelineVideo video;
    auto layout = video.layout();
    const auto cut = std::ranges::find(layout.blocks, TimelineRow::picture, &TimelineBlock::row);
    ASSERT_NE(cut, layout.blocks.end());
    cut->source.reset();
    cut->card = -7;
    for (const double scale : {3.0, 40.0, 900.0}) {
        double right = 0;
        for (const auto& still :
             only<DrawList::Still>(TimelineScene::rows(layout, {0, scale, 800}, {}, TimelineTheme::of({})))) {
            if (still.source != cut->pick.id) continue;
            EXPECT_EQ(still.second, -7);
            EXPECT_NEAR(still.rect.left(), right, 0.01);
            EXPECT_LT(still.rect.left(), 800);
            right = still.rect.right();
        }
        EXPECT_GE(right, std::min(4 * scale - 1.01, 800.0)) << scale;
    }
}

TEST(TimelineScene, timesOnTheRulerNeverTouch) {
    for (double scale = 0.01; scale < 1000; scale *= 1.3) {
        const double step = TimelineScene::rulerStep(scale);
        EXPECT_TRUE(step * scale >= 64 || step == 14400) << scale;
    }
}

TEST(TimelineScene, theSameThingsGiveTheSamePicture) {
    const TimelineVideo video;
    const auto colours = TimelineTheme::of({});
    const auto layout = video.layout();
    EXPECT_EQ(TimelineScene::rows(layout, {1, 33, 700}, {}, colours),
              TimelineScene::rows(layout, {1, 33, 700}, {}, colours));
}

TEST(TimelineScene, freeFootageReachesAsFarAsTheSourceDoes) {
    const TimelineVideo video;
    const auto layout = video.layout();
    const auto& first = *std::ranges::find(layout.blocks, TimelineRow::picture, &TimelineBlock::row);
    const TimelineSpan span{-20, 5, 1000};
    const auto fills =
        only<DrawList::Patch>(TimelineScene::freeFootage(layout, span, first, TimelineTheme::of({})));
    ASSERT_FALSE(fills.empty());
    double left = 1e9;
    double right = -1e9;
    for (const auto& fill : fills) {
        left = std::min(left, fill.rect.left());
        right = std::max(right, fill.rect.right());
        EXPECT_FALSE(fill.rect.left() < span.x(4) - 1 && fill.rect.right() > span.x(0) + 1)
            << "not over the cut";
    }
    EXPECT_NEAR(left, span.x(-10), 0.01) << "10 s lie before it";
    EXPECT_NEAR(right, span.x(90), 0.01) << "86 s after it";
}

TEST(TimelineScene, anOverlayShowsItsPictureAndItsNameBesideIt) {
    TimelineVideo video;
    video.editor.change("Pictures", [](Project& project) {
        auto& shown = project.videos.edit()[0];
        const auto source = shown.cuts[0].source;
        shown.look->overlays.edit() = {{.playbook = "picture",
                                        .source = source,
                                        .at = 10,
                                        .length = 2,
                                        .values = Values{{"media", "map.png"}}},
                                       {.playbook = "picture",
                                        .source = source,
                                        .at = 12,
                                        .length = 2,
                                        .values = Values{{"media", "rec:31-33"}}},
                                       {.playbook = "picture", .source = source, .at = 50, .length = 2}};
    });
    const Said said(video.editor.project());
    const auto layout =
        TimelineLayout::of({video.editor.project(),
                            *video.editor.video(),
                            {},
                            said,
                            [](auto&, auto) {
                                return TimelineLayout::BookFacts{"Picture", true, "media", "emoji:x"};
                            },
                            {},
                            2,
                            [](const std::string& name) {
                                return name.ends_with(".png")
                                           ? std::optional<std::filesystem::path>("/pictures/" + name)
                                           : std::nullopt;
                            }});
    const TimelineSpan span{0.5, 60, 900}; // the first begins left of what is seen
    const auto list = TimelineScene::rows(layout, span, {}, TimelineTheme::of({}));
    const auto files = only<DrawList::FilePicture>(list);
    ASSERT_EQ(files.size(), 1);
    EXPECT_EQ(files[0].file, "/pictures/map.png");
    EXPECT_GE(files[0].rect.left(), 0);
    const auto top = layout.track(TimelineRow::layers)->top;
    std::vector<DrawList::Label> names;
    for (const auto& label : only<DrawList::Label>(list))
        if (label.rect.top() >= top && label.rect.top() < top + 24) names.push_back(label);
    ASSERT_EQ(names.size(), 3);
    EXPECT_GE(names[0].rect.left(), files[0].rect.right());
    int stills = 0;
    for (const auto& still : only<DrawList::Still>(list))
        stills += still.rect.top() < top + 24 && still.second == 31;
    EXPECT_EQ(stills, 1) << "a stretch of the footage shows that";
}

TEST(TimelineScene, whatIsCarriedIsNotDrawnAndItsRoomIs) {
    const TimelineVideo video;
    const TimelineSpan span{0, 40, 800};
    const auto colours = TimelineTheme::of({});
    const auto waves = [&](const TimelineScene::Parted& parted) {
        std::vector<double> lefts;
        for (const auto& wave :
             only<DrawList::Wave>(TimelineScene::rows(video.layout(), span, {}, colours, parted)))
            lefts.push_back(wave.rect.left());
        return lefts;
    };
    const auto plain = waves({});
    const auto parted = waves({{{video.cut(1).id, -4}}, video.cut(0).id, Stretch{3, 7}});
    EXPECT_EQ(plain.front(), 0);
    EXPECT_EQ(parted.front(), 0) << "the second stands where the first stood";
    EXPECT_EQ(parted.size() + 1, plain.size());
}
