#include "app/desktop/timeline/TimelineDrag.h"
#include "tests/desktop/TimelineVideo.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// Presses, moves and lets go at 20 points a second.
class Hand {
public:
    explicit Hand(TimelineVideo& shown) : video(shown), drag(shown.editor) {}

    TimelineDrag::Pointer at(double time, TimelineRow row, double down = 20) const {
        return {span.x(time), video.layout().track(row)->top + down};
    }
    void press(double time, TimelineRow row = TimelineRow::picture, TimelinePicks::Modifiers held = {}) {
        drag.press(video.layout(), span, at(time, row, 10), held);
    }
    void move(double time, TimelineRow row = TimelineRow::picture, TimelinePicks::Modifiers held = {}) {
        drag.move(video.layout(), span, at(time, row, 10), held);
    }
    void pull(double from, double to, TimelineRow row = TimelineRow::picture) {
        press(from, row);
        move((from + to) / 2, row);
        move(to, row);
        drag.release();
    }
    std::size_t steps() const { return video.editor.history().past().size(); }

    TimelineVideo& video;
    TimelineDrag drag;
    TimelineSpan span{0, 20, 800};
};

class TimelineDragTest : public testing::Test {
protected:
    TimelineVideo video;
    Hand hand{video};
};

}

TEST_F(TimelineDragTest, aPressPicksAndGoesThere) {
    hand.press(5);
    hand.drag.release();
    EXPECT_EQ(video.editor.picked()->id, video.cut(1).id);
    EXPECT_EQ(video.editor.focus(), Viewer::video);
    EXPECT_EQ(hand.steps(), 0) << "a press alone changes nothing";
    hand.press(9, TimelineRow::picture, {.command = true});
    EXPECT_EQ(TimelinePicks::all(video.editor).size(), 2);
}

TEST_F(TimelineDragTest, anEndIsTrimmedAsOneStep) {
    video.editor.setSnapping(false);
    hand.press(3.9);
    EXPECT_EQ(hand.drag.holding(), TimelineDrag::Grip::end);
    hand.move(3);
    EXPECT_TRUE(video.editor.edge()) << "the source player shows the edge";
    hand.move(2.9);
    hand.drag.release();
    EXPECT_FALSE(video.editor.edge());
    EXPECT_NEAR(video.cut(0).end, 13, 0.01);
    EXPECT_EQ(hand.steps(), 1);
    EXPECT_EQ(video.editor.history().undoName(), "Trim");
}

TEST_F(TimelineDragTest, aTrimmedEdgeCatchesWhereALineEnds) {
    hand.press(3.9);
    hand.move(3.05); // the end at 13.15, within 8 points of the line's end at 13
    EXPECT_TRUE(hand.drag.snapLine());
    EXPECT_NEAR(video.cut(0).end, 13, 1e-6);
    hand.move(3.05, TimelineRow::picture, {.option = true});
    EXPECT_NEAR(video.cut(0).end, 13.15, 0.01) << "not while Alt is held";
    hand.drag.release();
}

TEST_F(TimelineDragTest, lettingGoOfATrimLeavesTheProjectAsItWas) {
    const auto before = video.editor.project();
    hand.press(3.9);
    hand.move(2);
    EXPECT_NE(video.editor.project(), before);
    hand.drag.cancel();
    EXPECT_EQ(video.editor.project(), before);
    EXPECT_EQ(hand.steps(), 0);
    EXPECT_FALSE(video.editor.edge());
    EXPECT_FALSE(video.editor.unfinished());
}

TEST_F(TimelineDragTest, aCutMovesToWhereItIsDropped) {
    const auto first = video.cut(0).id;
    hand.press(2);
    hand.move(11);
    EXPECT_EQ(hand.drag.landing(), (PartedRow::Landing{first, 3}));
    hand.drag.release();
    EXPECT_EQ(video.cut(2).id, first);
    EXPECT_EQ(video.editor.history().undoName(), "Move Cut");
}

TEST_F(TimelineDragTest, aSoundIsMovedAndMadeLonger) {
    video.editor.setSnapping(false);
    hand.pull(5.5, 8.5, TimelineRow::sounds);
    const auto& sound = video.editor.video()->look->sounds[0];
    EXPECT_NEAR(sound.at, 51, 0.01) << "it hangs on the footage that is there";
    EXPECT_EQ(video.editor.history().undoName(), "Move Sound");
    hand.pull(8.95, 9.95, TimelineRow::sounds);
    EXPECT_NEAR(*video.editor.video()->look->sounds[0].length, 2, 0.05);
    EXPECT_EQ(hand.steps(), 2);
}

TEST_F(TimelineDragTest, theBladeCutsAndTheTrimToolSlips) {
    video.editor.setSnapping(false);
    video.editor.setTool(EditingTool::blade);
    hand.press(2);
    hand.drag.release();
    EXPECT_EQ(video.editor.video()->cuts.size(), 4);
    video.editor.setTool(EditingTool::trim);
    hand.pull(10, 9);
    EXPECT_NEAR(video.cut(3).start, 51, 0.01);
    EXPECT_NEAR(video.cut(3).length(), 5, 0.01);
    EXPECT_EQ(video.editor.history().undoName(), "Slip");
}

TEST_F(TimelineDragTest, aRubberBandCatchesWhatItTouches) {
    hand.press(13);
    hand.move(8);
    ASSERT_TRUE(hand.drag.band());
    EXPECT_EQ(hand.drag.band()->from, 8);
    hand.drag.release();
    EXPECT_EQ(TimelinePicks::all(video.editor).size(), 1);
    EXPECT_EQ(video.editor.picked()->id, video.cut(2).id);
}

TEST_F(TimelineDragTest, theHandPans) {
    video.editor.setTool(EditingTool::hand);
    hand.press(5);
    EXPECT_NEAR(hand.drag.move(video.layout(), hand.span, hand.at(3, TimelineRow::picture), {}), 2, 1e-9);
    EXPECT_FALSE(video.editor.picked());
}

TEST_F(TimelineDragTest, whatGoesToAnotherPlaceIsSeenGoing) {
    const auto before = video.editor.project();
    hand.press(2);
    EXPECT_FALSE(hand.drag.ghost());
    hand.move(5);
    ASSERT_TRUE(hand.drag.ghost());
    EXPECT_NEAR(hand.drag.ghost()->from, 3, 1e-9);
    EXPECT_EQ(hand.drag.ghost()->label, "C01.01");
    EXPECT_FALSE(hand.drag.trimmed(video.layout()));
    hand.drag.cancel();
    EXPECT_FALSE(hand.drag.ghost());
    EXPECT_FALSE(hand.drag.landing());
    EXPECT_EQ(video.editor.project(), before);
}

TEST_F(TimelineDragTest, aTrimSaysWhichCutHasFreeFootage) {
    hand.press(3.9);
    EXPECT_FALSE(hand.drag.trimmed(video.layout())) << "not before it moves";
    hand.move(3);
    const auto layout = video.layout();
    const auto* cut = hand.drag.trimmed(layout);
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->pick.id, video.cut(0).id);
    EXPECT_EQ(cut->sourceLength, 100);
    hand.drag.cancel();
}

TEST_F(TimelineDragTest, theSeamOfTwoCutsRollsAsOneStep) {
    video.editor.setSnapping(false);
    video.editor.setTool(EditingTool::trim);
    const auto before = video.editor.project();
    hand.press(4.1);
    EXPECT_EQ(hand.drag.holding(), TimelineDrag::Grip::roll);
    hand.move(3);
    hand.move(3.1);
    ASSERT_TRUE(video.editor.edge() && video.editor.edgeAfter()) << "both sides are shown";
    EXPECT_NEAR(video.editor.edgeAfter()->at, 29, 0.01);
    hand.drag.release();
    EXPECT_NEAR(video.cut(0).end, 13, 0.01);
    EXPECT_NEAR(video.cut(1).start, 29, 0.01);
    EXPECT_NEAR(video.editor.video()->length(), 12, 1e-9);
    EXPECT_FALSE(video.editor.edge() || video.editor.edgeAfter());
    EXPECT_EQ(video.editor.history().undoName(), "Roll");
    video.editor.undo();
    EXPECT_EQ(video.editor.project(), before);

    hand.press(3.75);
    EXPECT_EQ(hand.drag.holding(), TimelineDrag::Grip::end) << "a little aside it is the edge alone";
    hand.drag.release();
    hand.press(11.95);
    EXPECT_EQ(hand.drag.holding(), TimelineDrag::Grip::end) << "nothing follows on the last cut";
    hand.drag.cancel();
    video.editor.setTool(EditingTool::select);
    hand.press(4.1);
    EXPECT_EQ(hand.drag.holding(), TimelineDrag::Grip::start);
    hand.drag.cancel();
}

TEST_F(TimelineDragTest, theBladeWithShiftCutsThroughAllRows) {
    video.editor.setSnapping(false);
    video.editor.setTool(EditingTool::blade);
    hand.press(5.5, TimelineRow::sounds);
    EXPECT_EQ(video.editor.video()->look->sounds.size(), 2) << "of that row alone";
    EXPECT_EQ(video.editor.video()->cuts.size(), 3);
    hand.press(5.2, TimelineRow::captions, {.shift = true});
    hand.drag.release();
    EXPECT_EQ(video.editor.video()->look->sounds.size(), 3);
    EXPECT_EQ(video.editor.video()->cuts.size(), 4);
    EXPECT_EQ(hand.steps(), 2);
}

TEST_F(TimelineDragTest, aCaptionIsTakenByItsBodyAndStaysInItsCut) {
    video.editor.setSnapping(false);
    const auto line = video.editor.project().transcript(video.cut(1).source).lines[1].id;
    hand.pull(5.5, 6, TimelineRow::captions);
    const auto* entry = video.editor.video()->look->captions.line(line);
    ASSERT_TRUE(entry);
    EXPECT_NEAR(*entry->start, 31.5, 0.01);
    EXPECT_NEAR(*entry->end, 32.5, 0.01);
    EXPECT_EQ(video.editor.history().undoName(), "Retime Caption");
    hand.pull(6, 11, TimelineRow::captions);
    EXPECT_NEAR(*video.editor.video()->look->captions.line(line)->end, 33, 0.01);
    EXPECT_EQ(hand.steps(), 2);
}

TEST_F(TimelineDragTest, aGeneratedCutGetsLongerAtEitherEnd) {
    video.editor.setSnapping(false);
    video.editor.change("Card", [](Project& project) {
        project.videos.edit()[0].cuts.edit()[1] = Cut::generated("card", 1, {}, 3);
    });
    hand.pull(6.9, 7.9);
    EXPECT_NEAR(video.cut(1).length(), 4, 0.01);
    hand.pull(4.1, 3.6);
    EXPECT_NEAR(video.cut(1).length(), 4.5, 0.01);
    EXPECT_EQ(video.cut(1).start, 0);
    EXPECT_EQ(hand.steps(), 3);
}
