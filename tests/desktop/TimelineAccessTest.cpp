#include "app/desktop/access/AccessTree.h"
#include "app/desktop/access/TimelineAccess.h"
#include "tests/desktop/OnWindow.h"

#include <QAccessible>
#include <utility>

using namespace murbo;

namespace {

class ListedWindow : public WindowOfProject {
public:
    ListedWindow() {
        putIn(0);
        putIn(1);
        editor().setPicked(std::nullopt);
        settle();
        view()->forceActiveFocus();
    }
    TimelineView* view() { return item<TimelineView>(); }
    QAccessibleInterface* list() { return QAccessible::queryAccessibleInterface(view()); }
    std::string name(int block) { return list()->child(block)->text(QAccessible::Name).toStdString(); }
};

using TimelineAccessTest = OnWindow<ListedWindow>;

}

TEST_F(TimelineAccessTest, theTimelineIsAListOfNamedBlocks) {
    auto* list = shown->list();
    ASSERT_TRUE(list);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->text(QAccessible::Name), "Timeline of V1, 2 cuts, 7 seconds");
    ASSERT_EQ(list->childCount(), shown->view()->blockCount());
    const int cut = list->childCount() - 2;
    EXPECT_EQ(shown->name(cut), "Cut 1 of 2, C01, 0:00.00 to 0:04.00");
    EXPECT_EQ(shown->name(cut + 1), "Cut 2 of 2, C02, 0:04.00 to 0:07.00");
    auto* block = list->child(cut + 1);
    EXPECT_EQ(block->role(), QAccessible::ListItem);
    EXPECT_EQ(block->parent(), list);
    EXPECT_EQ(list->indexOfChild(block), cut + 1);
    const auto middle = block->rect().center();
    EXPECT_EQ(list->childAt(middle.x(), middle.y()), block);
    EXPECT_EQ(list->parent()->parent()->indexOfChild(list->parent()) >= 0, true);

    block->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(shown->name(cut + 1), "Cut 2 of 2, C02, 0:04.00 to 0:07.00, picked");
    EXPECT_TRUE(block->state().selected);
    EXPECT_EQ(list->focusChild(), block);
    shown->key(Qt::Key_Delete);
    EXPECT_FALSE(block->isValid()) << "the last one is gone";
    EXPECT_EQ(list->text(QAccessible::Name), "Timeline of V1, 1 cut, 4 seconds");
}

TEST_F(TimelineAccessTest, theBlockThatKeysWalkToIsSaid) {
    const auto* list = dynamic_cast<TimelineAccess*>(shown->list());
    ASSERT_TRUE(list);
    QStringList names;
    QObject::connect(shown->view(), &TimelineView::blockWalked, [&] {
        const auto event = list->walkedTo();
        ASSERT_TRUE(event);
        EXPECT_EQ(event->type(), QAccessible::Focus);
        names << event->accessibleInterface()->text(QAccessible::Name);
    });
    const auto heard = [&] { return std::exchange(names, {}).join("; ").toStdString(); };
    shown->key(Qt::Key_End, Qt::ControlModifier);
    heard();
    shown->key(Qt::Key_Left, Qt::ControlModifier);
    EXPECT_EQ(heard(), "Cut 1 of 2, C01, 0:00.00 to 0:04.00, picked");
    shown->key(Qt::Key_Right, Qt::ControlModifier);
    EXPECT_EQ(heard(), "Cut 2 of 2, C02, 0:04.00 to 0:07.00, picked");
    shown->key(Qt::Key_Right);
    EXPECT_EQ(heard(), "") << "the playhead goes on, the block stays";
    shown->editor().setPicked(std::nullopt);
    EXPECT_EQ(heard(), "") << "what no key has walked to";
}
