#include "tests/desktop/PickedShot.h"

using namespace murbo;

namespace {

/// The item shown in the panel that is of that type and name; null where there is none.
QQuickItem* named(QQuickWindow& window, const QString& type, const QString& name) {
    auto* panel = WindowOfProject::ofType(window.contentItem(), "Inspector_");
    return panel ? WindowOfProject::ofType(panel, type, name) : nullptr;
}

using InspectorTabTest = OnWindow<PickedShot>;

}

TEST_F(InspectorTabTest, setsWhatIsPickedByMouse) {
    auto& window = shown->window();
    auto* slide = named(window, "Slide_", "Zoom");
    ASSERT_TRUE(slide);
    const auto before = shown->steps();
    const auto left = slide->mapToScene({6, slide->height() / 2}).toPoint();
    shown->carry(left, left + QPoint(60, 0), 12, [&] {
        EXPECT_GT(shown->shot().zoom, 1.5);
        EXPECT_EQ(shown->steps(), before);
    });
    EXPECT_EQ(shown->steps(), before + 1) << "a slide is one step";

    auto* label = named(window, "Labelled_", "Zoom");
    ASSERT_TRUE(label);
    const auto name = label->mapToScene({30, 14}).toPoint();
    QTest::mouseDClick(&window, Qt::LeftButton, {}, name);
    EXPECT_EQ(shown->shot().zoom, 1) << "a double click on the name puts it back";

    shown->clickOn(named(window, "QQuickRadioButton", "Face"));
    EXPECT_EQ(shown->shot().layout, Shot::Layout::face);
    shown->clickOn(named(window, "SectionHead_", "Adjust"));
    EXPECT_FALSE(named(window, "Slide_", "Zoom")) << "folded";
    shown->clickOn(named(window, "SectionHead_", "Adjust"));
    EXPECT_TRUE(named(window, "Slide_", "Zoom"));
}

TEST_F(InspectorTabTest, setsWhatIsPickedByKeys) {
    auto& window = shown->window();
    auto* box = named(window, "Field_", "Zoom");
    ASSERT_TRUE(box);
    box->forceActiveFocus(Qt::TabFocusReason);
    shown->typeOver("2,5");
    EXPECT_EQ(shown->shot().zoom, 2.5) << "typed, with the comma of many countries";
    EXPECT_EQ(box->property("text"), "2.50 ×");

    QTest::keyClick(&window, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&window, '3');
    shown->key(Qt::Key_Escape);
    EXPECT_EQ(box->property("text"), "2.50 ×") << "taken back";
    EXPECT_TRUE(box->hasActiveFocus());
    shown->typeOver("no");
    EXPECT_EQ(shown->shot().zoom, 2.5) << "words are no number";

    auto* slide = named(window, "Slide_", "Zoom");
    slide->forceActiveFocus(Qt::TabFocusReason);
    const auto time = shown->editor().playback.time();
    shown->key(Qt::Key_Left);
    EXPECT_NEAR(shown->shot().zoom, 2.49, 1e-6);
    EXPECT_EQ(shown->editor().playback.time(), time) << "the arrow is the slider's";
}
