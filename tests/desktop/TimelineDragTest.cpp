#include "app/desktop/timeline/TimelineDrag.h"
#include "tests/desktop/TimelineVideo.h"

using namespace murbo;

namespace {

/// Presses, moves and lets go at 20 points a second.
class TimelineDragTest : public testing::Test {
protected:
    TimelineDragTest() { video.editor.setSnapping(false); }
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

    TimelineVideo video;
    TimelineDrag drag{video.editor};
    TimelineSpan span{0, 20, 800};
};

}

TEST_F(TimelineDragTest, aPressPicksAndGoesThere) {
    press(5);
    drag.release();
    EXPECT_EQ(video.editor.picked()->id, video.cut(1).id);
    EXPECT_EQ(video.editor.focus(), Viewer::video);
    EXPECT_EQ(video.steps(), 0) << "a press alone changes nothing";
    press(9, TimelineRow::picture, {.command = true});
    EXPECT_EQ(TimelinePicks::all(video.editor).size(), 2);
}

TEST_F(TimelineDragTest, anEndIsTrimmedAsOneStep) {
    press(3.9);
    EXPECT_EQ(drag.holding(), TimelineDrag::Grip::end);
    move(3);
    EXPECT_TRUE(video.editor.edge()) << "the source player shows the edge";
    move(2.9);
    drag.release();
    EXPECT_FALSE(video.editor.edge());
    EXPECT_NEAR(video.cut(0).end, 13, 0.01);
    EXPECT_EQ(video.steps(), 1);
    EXPECT_EQ(video.step(), "Trim");
}

TEST_F(TimelineDragTest, aTrimmedEdgeCatchesWhereALineEnds) {
    video.editor.setSnapping(true);
    press(3.9);
    move(3.05); // the end at 13.15, within 8 points of the line's end at 13
    EXPECT_TRUE(drag.snapLine());
    EXPECT_NEAR(video.cut(0).end, 13, 1e-6);
    move(3.05, TimelineRow::picture, {.option = true});
    EXPECT_NEAR(video.cut(0).end, 13.15, 0.01) << "not while Alt is held";
    drag.release();
}

TEST_F(TimelineDragTest, lettingGoOfATrimLeavesTheProjectAsItWas) {
    const auto before = video.editor.project();
    press(3.9);
    move(2);
    EXPECT_NE(video.editor.project(), before);
    drag.cancel();
    EXPECT_EQ(video.editor.project(), before);
    EXPECT_EQ(video.steps(), 0);
    EXPECT_FALSE(video.editor.edge());
    EXPECT_FALSE(video.editor.unfinished());
}

TEST_F(TimelineDragTest, aCutMovesToWhereItIsDropped) {
    const auto first = video.cut(0).id;
    press(2);
    move(11);
    EXPECT_EQ(drag.landing(), (PartedRow::Landing{first, 3}));
    drag.release();
    EXPECT_EQ(video.cut(2).id, first);
    EXPECT_EQ(video.step(), "Move Cut");
}

TEST_F(TimelineDragTest, aSoundIsMovedAndMadeLonger) {
    pull(5.5, 8.5, TimelineRow::sounds);
    const auto& sound = video.editor.video()->look->sounds[0];
    EXPECT_NEAR(sound.at, 51, 0.01) << "it hangs on the footage that is there";
    EXPECT_EQ(video.step(), "Move Sound");
    pull(8.95, 9.95, TimelineRow::sounds);
    EXPECT_NEAR(*video.editor.video()->look->sounds[0].length, 2, 0.05);
    EXPECT_EQ(video.steps(), 2);
}

TEST_F(TimelineDragTest, theBladeCutsAndTheTrimToolSlips) {
    video.editor.setTool(EditingTool::blade);
    press(2);
    drag.release();
    EXPECT_EQ(video.editor.video()->cuts.size(), 4);
    video.editor.setTool(EditingTool::trim);
    pull(10, 9);
    EXPECT_NEAR(video.cut(3).start, 51, 0.01);
    EXPECT_NEAR(video.cut(3).length(), 5, 0.01);
    EXPECT_EQ(video.step(), "Slip");
}

TEST_F(TimelineDragTest, aRubberBandCatchesWhatItTouches) {
    press(13);
    move(8);
    ASSERT_TRUE(drag.band());
    EXPECT_EQ(drag.band()->from, 8);
    drag.release();
    EXPECT_EQ(TimelinePicks::all(video.editor).size(), 1);
    EXPECT_EQ(video.editor.picked()->id, video.cut(2).id);
}

TEST_F(TimelineDragTest, theHandPans) {
    video.editor.setTool(EditingTool::hand);
    press(5);
    EXPECT_NEAR(drag.move(video.layout(), span, at(3, TimelineRow::picture), {}), 2, 1e-9);
    EXPECT_FALSE(video.editor.picked());
}

TEST_F(TimelineDragTest, whatGoesToAnotherPlaceIsSeenGoing) {
    const auto before = video.editor.project();
    press(2);
    EXPECT_FALSE(drag.ghost());
    move(5);
    ASSERT_TRUE(drag.ghost());
    EXPECT_NEAR(drag.ghost()->from, 3, 1e-9);
    EXPECT_EQ(drag.ghost()->label, "C01.01");
    EXPECT_FALSE(drag.trimmed(video.layout()));
    drag.cancel();
    EXPECT_FALSE(drag.ghost());
    EXPECT_FALSE(drag.landing());
    EXPECT_EQ(video.editor.project(), before);
}

TEST_F(TimelineDragTest, aTrimSaysWhichCutHasFreeFootage) {
    press(3.9);
    EXPECT_FALSE(drag.trimmed(video.layout())) << "not before it moves";
    move(3);
    const auto layout = video.layout();
    const auto* cut = drag.trimmed(layout);
    ASSERT_TRUE(cut);
    EXPECT_EQ(cut->pick.id, video.cut(0).id);
    EXPECT_EQ(cut->sourceLength, 100);
    drag.cancel();
}

TEST_F(TimelineDragTest, theSeamOfTwoCutsRollsAsOneStep) {
    video.editor.setTool(EditingTool::trim);
    const auto before = video.editor.project();
    press(4.1);
    EXPECT_EQ(drag.holding(), TimelineDrag::Grip::roll);
    move(3);
    move(3.1);
    ASSERT_TRUE(video.editor.edge() && video.editor.edgeAfter()) << "both sides are shown";
    EXPECT_NEAR(video.editor.edgeAfter()->at, 29, 0.01);
    drag.release();
    EXPECT_NEAR(video.cut(0).end, 13, 0.01);
    EXPECT_NEAR(video.cut(1).start, 29, 0.01);
    EXPECT_NEAR(video.editor.video()->length(), 12, 1e-9);
    EXPECT_FALSE(video.editor.edge() || video.editor.edgeAfter());
    EXPECT_EQ(video.step(), "Roll");
    video.editor.undo();
    EXPECT_EQ(video.editor.project(), before);

    press(3.75);
    EXPECT_EQ(drag.holding(), TimelineDrag::Grip::end) << "a little aside it is the edge alone";
    drag.release();
    press(11.95);
    EXPECT_EQ(drag.holding(), TimelineDrag::Grip::end) << "nothing follows on the last cut";
    drag.cancel();
    video.editor.setTool(EditingTool::select);
    press(4.1);
    EXPECT_EQ(drag.holding(), TimelineDrag::Grip::start);
    drag.cancel();
}

TEST_F(TimelineDragTest, theBladeWithShiftCutsThroughAllRows) {
    video.editor.setTool(EditingTool::blade);
    press(5.5, TimelineRow::sounds);
    EXPECT_EQ(video.editor.video()->look->sounds.size(), 2) << "of that row alone";
    EXPECT_EQ(video.editor.video()->cuts.size(), 3);
    press(5.2, TimelineRow::captions, {.shift = true});
    drag.release();
    EXPECT_EQ(video.editor.video()->look->sounds.size(), 3);
    EXPECT_EQ(video.editor.video()->cuts.size(), 4);
    EXPECT_EQ(video.steps(), 2);
}

TEST_F(TimelineDragTest, aCaptionIsTakenByItsBodyAndStaysInItsCut) {
    const auto line = video.editor.project().transcript(video.cut(1).source).lines[1].id;
    pull(5.5, 6, TimelineRow::captions);
    const auto* entry = video.editor.video()->look->captions.line(line);
    ASSERT_TRUE(entry);
    EXPECT_NEAR(*entry->start, 31.5, 0.01);
    EXPECT_NEAR(*entry->end, 32.5, 0.01);
    EXPECT_EQ(video.step(), "Retime Caption");
    pull(6, 11, TimelineRow::captions);
    EXPECT_NEAR(*video.editor.video()->look->captions.line(line)->end, 33, 0.01);
    EXPECT_EQ(video.steps(), 2);
}

TEST_F(TimelineDragTest, aGeneratedCutGetsLongerAtEitherEnd) {
    video.editor.change("Card", [](Project& project) {
        project.videos.edit()[0].cuts.edit()[1] = Cut::generated("card", 1, {}, 3);
    });
    pull(6.9, 7.9);
    EXPECT_NEAR(video.cut(1).length(), 4, 0.01);
    pull(4.1, 3.6);
    EXPECT_NEAR(video.cut(1).length(), 4.5, 0.01);
    EXPECT_EQ(video.cut(1).start, 0);
    EXPECT_EQ(video.steps(), 3);
}
