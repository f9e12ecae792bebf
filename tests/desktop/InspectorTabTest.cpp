#include "tests/desktop/OnWindow.h"
#include "tests/desktop/PickedShot.h"

#include <QAccessible>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// All items within one, the item itself included, that a person can see.
void gather(QQuickItem* item, std::vector<QQuickItem*>& list) {
    if (!item->isVisible()) return;
    list.push_back(item);
    for (auto* child : item->childItems()) gather(child, list);
}

std::vector<QQuickItem*> itemsOf(QQuickWindow& window) {
    std::vector<QQuickItem*> list;
    gather(window.contentItem(), list);
    return list;
}

/// The panel at the window's right.
QQuickItem* panelOf(QQuickWindow& window) {
    for (auto* item : itemsOf(window))
        if (QString(item->metaObject()->className()).startsWith("Inspector_")) return item;
    return nullptr;
}

/// The visible item of the panel that is of that type and name; null where there is none.
QQuickItem* named(QQuickWindow& window, const QString& type, const QString& name) {
    std::vector<QQuickItem*> within;
    if (auto* panel = panelOf(window)) gather(panel, within);
    for (auto* item : within)
        if (QString(item->metaObject()->className()).startsWith(type) &&
            (item->property("name") == name || item->property("text") == name))
            return item;
    return nullptr;
}

using InspectorTabTest = OnWindow<PickedShot>;

}

TEST_F(InspectorTabTest, setsWhatIsPickedByMouse) {
    auto& window = shown->window();
    auto* slide = named(window, "Slide_", "Zoom");
    ASSERT_TRUE(slide);
    const auto before = shown->steps();
    const auto left = slide->mapToScene({6, slide->height() / 2}).toPoint();
    QTest::mousePress(&window, Qt::LeftButton, {}, left);
    for (int way = 5; way <= 60; way += 5) QTest::mouseMove(&window, left + QPoint(way, 0));
    EXPECT_GT(shown->shot().zoom, 1.5);
    EXPECT_EQ(shown->steps(), before);
    QTest::mouseRelease(&window, Qt::LeftButton, {}, left + QPoint(60, 0));
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

TEST_F(InspectorTabTest, whatTheKeysReachHasANameAndRoom) {
    auto* panel = panelOf(shown->window());
    ASSERT_TRUE(panel);
    std::vector<QQuickItem*> within;
    gather(panel, within);
    int count = 0;
    for (auto* item : within) {
        if (!item->activeFocusOnTab()) continue;
        ++count;
        auto* access = QAccessible::queryAccessibleInterface(item);
        ASSERT_TRUE(access) << item->metaObject()->className();
        EXPECT_NE(access->text(QAccessible::Name), "") << item->metaObject()->className();
        EXPECT_GE(item->width(), 24) << access->text(QAccessible::Name).toStdString();
        EXPECT_GE(item->height(), 24) << access->text(QAccessible::Name).toStdString();
        EXPECT_LE(item->mapToScene({item->width(), 0}).x(), 1280);
    }
    EXPECT_GT(count, 12);
}
