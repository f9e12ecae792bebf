#include "app/desktop/captions/CaptionDrag.h"
#include "app/desktop/timeline/TimelineDrag.h"
#include "tests/desktop/SpokenVideo.h"

using namespace murbo;

namespace {

struct Dragged : SpokenVideo {
    Dragged() { editor.setSnapping(false); }

    TimelineBlock block(std::size_t line, std::optional<std::int64_t> piece = {}) const {
        const auto shown = layout();
        const auto* found = shown.find({Pick::Kind::caption, said(line).id, piece});
        return found ? *found : TimelineBlock();
    }
    /// Pulls a block's edge with the mouse, at 20 points a second.
    void pull(const TimelineBlock& taken, bool start, double to, bool letGo = true) {
        const TimelineSpan span{0, 20, 800};
        const double y = layout().track(TimelineRow::captions)->top + 5;
        const double x = span.x(start ? taken.from : taken.to) + (start ? 2 : -2);
        drag.press(layout(), span, {x, y}, {});
        drag.move(layout(), span, {x + 10, y}, {});
        drag.move(layout(), span, {span.x(to) + (start ? 2 : -2), y}, {});
        if (letGo) drag.release();
    }
    const CaptionLine* entry(std::size_t line) const {
        return editor.video()->look->captions.line(said(line).id);
    }

    TimelineDrag drag{editor};
};

using CaptionDragTest = OnVideo<Dragged>;

}

TEST_F(CaptionDragTest, theEdgesOfALineRetimeItAsOneStep) {
    video.pull(video.block(0), false, 3.4);
    EXPECT_NEAR(*video.entry(0)->end, 13.4, 0.01);
    EXPECT_NEAR(*video.entry(0)->start, 11, 0.01);
    EXPECT_EQ(video.step(), "Retime Caption");
    EXPECT_EQ(video.steps(), 1);
    EXPECT_NEAR(video.block(0).to, 3.4, 0.01);
    video.pull(video.block(0), true, 0.5);
    EXPECT_NEAR(*video.entry(0)->start, 10.5, 0.01);
    EXPECT_EQ(video.said(0).end, 13) << "the line itself keeps its times";
}

TEST_F(CaptionDragTest, anEdgeStopsBeforeTheOther) {
    video.pull(video.block(0), true, 30);
    EXPECT_NEAR(*video.entry(0)->start, 12.9, 0.01);
    video.pull(video.block(4), false, 1);
    EXPECT_GT(*video.entry(4)->end, *video.entry(4)->start);
}

TEST_F(CaptionDragTest, theMeetOfABrokenLineMovesFromBothSides) {
    CaptionEdits::toggleBreak(video.editor, video.said(0).id, 2);
    video.pull(video.block(0, 0), false, 1.5);
    const double first = *(*video.entry(0)->pieces)[0].until;
    EXPECT_NEAR(first, 0.25, 0.02);
    EXPECT_FALSE(video.entry(0)->end) << "the line keeps its time";
    video.pull(video.block(0, 1), true, 2);
    EXPECT_NEAR(*(*video.entry(0)->pieces)[0].until, 0.5, 0.02);
    video.pull(video.block(0, 1), false, 3.5);
    EXPECT_NEAR(*video.entry(0)->end, 13.5, 0.01) << "the last piece ends with the line";
    video.pull(video.block(0, 0), false, 30);
    EXPECT_LT(*(*video.entry(0)->pieces)[0].until, 0.98);
}

TEST_F(CaptionDragTest, lettingGoLeavesTheLookAsItWas) {
    const auto before = video.editor.project();
    video.pull(video.block(0), false, 3.7, false);
    EXPECT_NE(video.editor.project(), before);
    video.drag.cancel();
    EXPECT_EQ(video.editor.project(), before);
    EXPECT_FALSE(video.editor.unfinished());
    CaptionDrag drag(video.editor);
    drag.begin({.kind = Pick::Kind::caption}, {0, 1}, CaptionDrag::CaptionGrip::end);
    drag.move(3);
    drag.end();
    EXPECT_EQ(video.editor.project(), before) << "no caption, no drag";
}
