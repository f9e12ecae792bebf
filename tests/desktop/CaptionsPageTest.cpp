#include "app/desktop/ProjectWindow.h"
#include "app/desktop/captions/CaptionsPage.h"
#include "app/desktop/timeline/TimelineView.h"
#include "core/playbooks/Library.h"
#include "tests/desktop/SpokenWindow.h"

using namespace murbo;

namespace {

struct CaptionsWindow : SpokenWindow {
    CaptionsWindow() { show(InspectorTab::captions); }
    CaptionsPage& page() { return opened->captionsPage(); }
    CaptionList& list() { return *page().list(); }
    /// Where a caption's block lies on the timeline.
    QPointF block(std::size_t line) {
        auto* view = item<TimelineView>();
        for (const auto& one : view->shown().blocks)
            if (one.row == TimelineRow::captions && one.label == said(line))
                return view->mapToScene(
                    {view->shownSpan().x((one.from + one.to) / 2), view->shown().top(one) + 8});
        return {};
    }
};

/// The list of captions, which knows the one that it last went to.
QQuickItem* listIn(QQuickItem* in) {
    if (in->property("stood").isValid()) return in;
    for (auto* child : in->childItems())
        if (auto* found = listIn(child)) return found;
    return nullptr;
}

using CaptionsPageTest = OnWindow<CaptionsWindow>;
using CaptionsTabTest = OnWindow<SpokenWindow>;

}

TEST_F(CaptionsPageTest, aPresetIsChosenByItsCardDrawnOnTheVideosOwnWords) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return !shown->page().pictures().picture("pop").isNull(); }, 20000));
    const auto pop = shown->page().pictures().picture("pop");
    const auto boxed = shown->page().pictures().picture("boxed");
    ASSERT_EQ(pop.size(), boxed.size());
    EXPECT_NE(pop, boxed);
    shown->clickOn(shown->named("Boxed"));
    EXPECT_EQ(shown->editor().video()->look->captions.style->base, "boxed");
    EXPECT_EQ(shown->step(), "Change Caption Style");
}

TEST_F(CaptionsPageTest, aStyleIsChangedForTheVideoOrTheProjectAndSavedForOthers) {
    auto& page = shown->page();
    page.set("fill", "FF0000");
    EXPECT_EQ(shown->editor().video()->look->captions.style->fill, "FF0000");
    page.setOfProject(true);
    page.set("upper", true);
    EXPECT_EQ(shown->editor().project().captionStyle->upper, true);
    page.setOfProject(false);
    page.reset("fill");
    EXPECT_FALSE(shown->editor().video()->look->captions.style &&
                 shown->editor().video()->look->captions.style->fill);
    // A slide is one step, however many pieces it has.
    const auto steps = shown->steps();
    for (int size = 60; size < 90; ++size) page.settle("size", size);
    EXPECT_EQ(shown->step(), "Change Caption Style");
    shown->settle(Editor::settlingTime + 200);
    EXPECT_EQ(shown->steps(), steps + 1);
    EXPECT_TRUE(page.savePreset("My Own"));
    ASSERT_EQ(Library::styles().size(), 1);
    EXPECT_EQ(Library::styles()[0].size, 89);
    EXPECT_EQ(page.presets()->rowCount(), 6);
    EXPECT_FALSE(page.savePreset("   "));
}

TEST_F(CaptionsTabTest, theTabOpensAtItsTopAndGoesToACaptionThatIsPickedFromThenOn) {
    shown->window().resize(1280, 640); // not all fits
    const auto& lines = shown->editor().project().transcript(shown->editor().project().sources[0].id).lines;
    const Pick last{Pick::Kind::caption, lines->back().id, {}};
    shown->editor().setPicked(last);
    shown->show(InspectorTab::captions);
    auto* list = listIn(shown->window().contentItem());
    ASSERT_TRUE(list);
    const auto scrolled = [&] {
        shown->settle(50);
        return list->property("contentY").toDouble() - list->property("originY").toDouble();
    };
    const auto toTop = [&] { QMetaObject::invokeMethod(list, "positionViewAtBeginning"); };
    EXPECT_EQ(scrolled(), 0);
    shown->project().perform("caption.break");
    EXPECT_GT(scrolled(), 0) << "its words are there to be broken between";
    toTop();
    shown->opened->captionsPage().set("fill", "FF0000");
    EXPECT_EQ(scrolled(), 0) << "who tries styles is left with them";
    shown->editor().setPicked(std::nullopt);
    shown->editor().setPicked(last);
    EXPECT_GT(scrolled(), 0);
}

TEST_F(CaptionsPageTest, aCaptionIsEditedWhereItLiesOnTheTimeline) {
    const auto place = shown->block(3).toPoint();
    QTest::mouseClick(&shown->window(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(&shown->window(), Qt::LeftButton, {}, place);
    shown->settle();
    auto* field = shown->named("Words of the caption");
    ASSERT_TRUE(field);
    ASSERT_TRUE(field->hasActiveFocus());
    shown->key(Qt::Key_End);
    shown->compose("ก", "ก็");
    shown->key(Qt::Key_Return);
    EXPECT_EQ(shown->said(3), "no no 🙂 the floorก็");
    EXPECT_FALSE(shown->named("Words of the caption"));
    // By key again, and given back.
    shown->key(Qt::Key_Return);
    ASSERT_TRUE(shown->named("Words of the caption"));
    shown->type("gone");
    shown->key(Qt::Key_Escape);
    EXPECT_EQ(shown->said(3), "no no 🙂 the floorก็");
}

TEST_F(CaptionsPageTest, theContextMenuActsOnThePickedCaption) {
    const auto place = shown->block(0).toPoint();
    QTest::mouseClick(&shown->window(), Qt::RightButton, {}, place);
    shown->settle();
    EXPECT_TRUE(shown->named("Break Caption…"));
    EXPECT_TRUE(shown->project().perform("caption.hide"));
    EXPECT_EQ(shown->step(), "Hide Caption");
    shown->page().setOn(false);
    EXPECT_FALSE(shown->editor().video()->look->captions.on);
}

TEST_F(CaptionsPageTest, aSavedStyleIsNamedOtherwiseAndTakenAwayByItsCardsMenu) {
    auto& page = shown->page();
    page.set("size", 90);
    ASSERT_TRUE(page.savePreset("My Own"));
    page.pickPreset("clean");
    shown->settle();
    const auto choose = [&](QQuickItem* card, int line) {
        shown->clickOn(card, Qt::RightButton);
        for (int at = 0; at < line; ++at) shown->key(Qt::Key_Down);
        shown->key(Qt::Key_Return);
    };
    choose(shown->named("My Own"), 0);
    shown->type("Big");
    shown->key(Qt::Key_Return);
    EXPECT_EQ(shown->step(), "Rename Caption Style");
    EXPECT_EQ(Library::styles().at(0).name, "Big");
    ASSERT_TRUE(shown->named("Big"));
    EXPECT_EQ(shown->editor().video()->look->captions.style->base, "clean") << "the menu picks no style";

    choose(shown->named("Boxed"), 1);
    EXPECT_TRUE(shown->named("Boxed")) << "what comes with the program stays";
    choose(shown->named("Big"), 1);
    EXPECT_TRUE(Library::styles().empty());
    EXPECT_EQ(shown->step(), "Remove Caption Style");
    EXPECT_FALSE(shown->named("Big"));
    shown->key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(shown->named("Big"));
}

TEST_F(CaptionsPageTest, aCaptionIsRetimedAndItsWordsStressedByKeys) {
    shown->list().pick(0);
    shown->settle();
    const auto typeInto = [&](const char* name, const char* words) {
        auto* row = shown->named(name);
        ASSERT_TRUE(row) << name;
        for (auto* child : row->childItems())
            if (child->isVisible()) child->forceActiveFocus(Qt::TabFocusReason);
        shown->typeOver(words);
    };
    const auto entry = [&] { return shown->editor().video()->look->captions.lines[0]; };
    const double end = shown->list().pickedCue()->end;
    typeInto("Start of the caption", "0:00.40");
    EXPECT_EQ(shown->step(), "Retime Caption");
    EXPECT_NEAR(shown->list().pickedCue()->start, 0.4, 1e-6);
    EXPECT_NEAR(shown->list().pickedCue()->end, end, 1e-6);
    typeInto("End of the caption", "0:00.20");
    EXPECT_NEAR(shown->list().pickedCue()->end, 0.5, 1e-6) << "no shorter than a tenth";
    shown->list().resetTiming();
    EXPECT_FALSE(entry().start || entry().end);
    EXPECT_NEAR(shown->list().pickedCue()->end, end, 1e-6);

    auto* word = shown->named("Stand out");
    ASSERT_TRUE(word);
    word->forceActiveFocus(Qt::TabFocusReason);
    shown->key(Qt::Key_Return);
    EXPECT_EQ(shown->step(), "Stress Word");
    EXPECT_EQ(entry().stress, std::vector<std::int64_t>{0});
}

TEST_F(CaptionsPageTest, everyFieldOfTheStyleIsSetByKeys) {
    shown->clickOn(shown->named("Style"));
    const auto fields = shown->page().fields();
    ASSERT_EQ(fields.size(), 16);
    for (const auto& each : fields) {
        const auto field = each.toMap();
        const auto kind = field["kind"].toString();
        const auto name = field["name"].toString();
        const bool shade = kind == "shade" || kind == "colour";
        ASSERT_TRUE(shown->tabTo(shade ? name + ", six digits" : name)) << name.toStdString();
        if (shade)
            shown->typeOver("12AB34");
        else if (kind == "fonts")
            shown->typeOver("Mitr");
        else if (kind == "flag")
            shown->key(Qt::Key_Return);
        else if (kind == "choice")
            shown->key(field["words"].toStringList().indexOf(field["value"].toString()) > 0 ? Qt::Key_Up
                                                                                            : Qt::Key_Down);
        else
            shown->key(field["value"].toDouble() < field["to"].toDouble() ? Qt::Key_Right : Qt::Key_Left);
    }
    shown->settle(Editor::settlingTime + 100);
    ASSERT_TRUE(shown->editor().video()->look->captions.style);
    for (const auto& each : shown->page().fields()) {
        const auto field = each.toMap();
        EXPECT_TRUE(field["changed"].toBool()) << field["name"].toString().toStdString();
    }
    EXPECT_EQ(shown->cuts(), 1U) << "no key was a command";
    EXPECT_EQ(shown->editor().playback.rate(), 0);
}
