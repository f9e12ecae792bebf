#include "app/desktop/ActionSearch.h"
#include "app/desktop/Actions.h"
#include "app/desktop/access/AccessTree.h"
#include "tests/desktop/AccessWalk.h"
#include "tests/desktop/OnWindow.h"

#include <QKeySequence>
#include <algorithm>

using namespace murbo;

namespace {

/// A window with a video of two cuts.
class CutWindow : public WindowOfProject {
public:
    CutWindow() {
        putIn(0);
        putIn(1);
        settle();
    }
    const AccessNode* focused() {
        nodes = AccessTree::of(window());
        const auto found = std::ranges::find_if(nodes, &AccessNode::focused);
        return found == nodes.end() ? nullptr : &*found;
    }
    void expectNoFaults(const std::string& where) {
        settle();
        EXPECT_EQ(AccessWalk::faults(window()), "") << where;
        EXPECT_EQ(AccessWalk::pressedByMouseAlone(window()), "") << where;
    }

private:
    std::vector<AccessNode> nodes;
};

using AccessTreeTest = OnWindow<CutWindow>;

}

TEST_F(AccessTreeTest, allThatIsShownHasANameARoleAndASize) {
    for (const auto& size : {QSize(1024, 640), QSize(1280, 800), QSize(1920, 1080)}) {
        shown->window().resize(size);
        shown->expectNoFaults(std::to_string(size.width()));
    }
    for (const auto* action :
         {"tab.transcript", "tab.captions", "tab.inspector", "go.videos", "go.sources", "go.playbooks",
          "go.layouts", "go.sounds", "go.clips", "key.cutFace", "walk.first", "framing"}) {
        shown->project().perform(action);
        shown->expectNoFaults(action);
    }
}

TEST_F(AccessTreeTest, sheetsHaveThemToo) {
    for (const auto* sheet : {"export", "newVideo", "addFiles", "addStream", "renameVideo", "palette",
                              "history", "saveAs", "duplicate", "findMissing", "settings", "keys"}) {
        shown->project().setSheet(sheet);
        shown->expectNoFaults(sheet);
        shown->project().setSheet("");
    }
    shown->desktop->showStart();
    shown->settle();
    EXPECT_EQ(AccessWalk::faults(*shown->desktop->startWindow()), "");
    EXPECT_EQ(AccessWalk::pressedByMouseAlone(*shown->desktop->startWindow()), "");
}

TEST_F(AccessTreeTest, theNextRegionIsReachedByOneKeyAndTheRingCloses) {
    std::vector<std::string> names;
    for (int at = 0; at < 6; ++at) {
        shown->key(Qt::Key_F6);
        const auto* node = shown->focused();
        names.push_back(node ? node->name.toStdString() : "nobody");
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Inspector", "Project", "Browser", "Video viewer",
                                               "Timeline of V1, 2 cuts, 7 seconds", "Inspector"}));
}

TEST_F(AccessTreeTest, theRingGoesOnFromWhereTheKeysAreAndASheetGivesThemBack) {
    ASSERT_TRUE(shown->project().perform("go.clips"));
    ASSERT_EQ(shown->focused()->name, "Browser");
    shown->key(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(shown->focused()->name, "Commands");
    shown->key(Qt::Key_Escape);
    ASSERT_TRUE(shown->focused());
    EXPECT_EQ(shown->focused()->name, "Browser");
    shown->key(Qt::Key_F6, Qt::ShiftModifier);
    EXPECT_EQ(shown->focused()->name, "Project");
}

/// Whatever the table has is reached without a mouse: by its words in the palette, and by its keys.
TEST_F(AccessTreeTest, noActionIsForTheMouseAlone) {
    std::string unreached;
    for (const auto& action : Actions::all()) {
        if (action.id == "palette") continue;
        const auto words = QString::fromStdString(Actions::title(action));
        const auto lines = shown->project().found(words);
        if (lines.empty() || lines[0].toMap()["id"].toString().toStdString() != action.id)
            unreached += action.id + " is not what the palette gives for its title\n";
        const auto bare = Keys::name(action.command ? Keys::standard().key(*action.command) : "");
        if (action.command && (!bare || Keys::standard().command(*bare) != action.command))
            unreached += action.id + " has a key that gives something else\n";
        if (action.keys.empty()) continue;
        const QKeySequence keys(QString::fromStdString(action.keys));
        if (keys.count() != 1 || Actions::byKeys(keys[0]) != &action)
            unreached += action.id + " has keys that do not give it\n";
    }
    EXPECT_EQ(unreached, "");
}
