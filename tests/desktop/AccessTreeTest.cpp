#include "app/desktop/ActionSearch.h"
#include "app/desktop/Actions.h"
#include "app/desktop/access/AccessTree.h"
#include "tests/desktop/AccessWalk.h"
#include "tests/desktop/OnWindow.h"

#include <QKeySequence>

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
    void expectNoFaults(const std::string& where) {
        settle();
        EXPECT_EQ(AccessWalk::faults(window()), "") << where;
        EXPECT_EQ(AccessWalk::pressedByMouseAlone(window()), "") << where;
    }
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
