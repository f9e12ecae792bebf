#include "app/desktop/inspector/InspectorPanel.h"
#include "platform/store/SettingsStore.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using InspectorPanelTest = OnWindow<WindowOfProject>;

TEST_F(InspectorPanelTest, isShownFoldedAndReachedByKeys) {
    auto* panel = WindowOfProject::ofType(shown->window().contentItem(), "Inspector_");
    ASSERT_TRUE(panel);
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(panel->mapRectToScene(panel->boundingRect()), QRectF(1280 - 316, 41, 316, 759));

    shown->key(Qt::Key_I, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_FALSE(panel->isVisible());
    EXPECT_EQ(SettingsStore::standard().boolean("inspectorShown"), false);
    shown->key(Qt::Key_1, Qt::ControlModifier);
    EXPECT_TRUE(panel->isVisible()) << "bringing a tab up brings the panel up";

    for (int presses = 0; presses < 5 && !panel->hasActiveFocus(); ++presses) shown->key(Qt::Key_F6);
    EXPECT_TRUE(panel->hasActiveFocus());
}

TEST_F(InspectorPanelTest, showsTheFirstTabForOneThatItHasNot) {
    InspectorPanel panel(shown->editor());
    shown->editor().setInspectorTab(InspectorTab::mcp);
    EXPECT_EQ(panel.tab(), 0);
    panel.choose(99);
    panel.choose(-1);
    EXPECT_EQ(shown->editor().inspectorTab(), InspectorTab::mcp);
}
