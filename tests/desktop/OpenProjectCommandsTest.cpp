#include "app/desktop/Actions.h"
#include "app/desktop/OpenProject.h"
#include "tests/desktop/SpokenWindow.h"

#include <set>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// A window in which nearly everything has something to act on.
class BusyWindow : public SpokenWindow {
public:
    BusyWindow() {
        key(Qt::Key_E);
        editor().playback.seek(0.6);
        settle();
        steps = editor().history().past().size();
        atFirst = editor().project();
    }
    void prepare(const std::optional<Pick>& pick, Collection page) {
        editor().openOnTimeline(atFirst.videos[0].id);
        if (page == Collection::clips)
            editor().holdClip(atFirst.clips[0].id);
        else
            editor().holdSource(atFirst.sources[0].id);
        editor().setSidebar({page, {}});
        settle(10);
        editor().setRange(Stretch{1, 2});
        editor().playback.seek(0.6);
        editor().setPicked(pick);
        settle(10);
    }
    /// Leaves what has been opened, and takes back what has been done.
    void tidy() {
        for (int time = 0; time < 3; ++time) key(Qt::Key_Escape);
        project().cancelWork();
        settle(10);
        while (editor().history().past().size() > steps) editor().undo();
        while (editor().history().past().size() < steps) editor().redo();
        settle(10);
    }
    std::size_t steps = 0;
    Project atFirst;
};

}

/// Nothing throws, no view complains, and what is a step is taken back by one.
TEST(OpenProjectCommands, eachActionIsDoneAndUndone) {
    MURBO_NEEDS_FFMPEG();
    BusyWindow shown;
    // These end the window, or open another program's.
    const std::set<std::string> apart{"closeWindow", "showInFolder", "library.show"};
    const auto line = shown.atFirst.transcript(shown.atFirst.sources[0].id).lines[0].id;
    const auto cut = shown.atFirst.videos[0].cuts[1].id;
    const std::pair<std::optional<Pick>, Collection> settings[] = {
        {Pick{Pick::Kind::cut, cut, {}}, Collection::clips},
        {Pick{Pick::Kind::caption, line, {}}, Collection::playbooks}};
    std::set<std::string> left;
    for (const auto& action : Actions::all()) left.insert(action.id);
    for (const auto& [pick, page] : settings)
        for (const auto& action : Actions::all()) {
            if (apart.contains(action.id)) continue;
            shown.prepare(pick, page);
            if (shown.project().perform(QString::fromStdString(action.id))) left.erase(action.id);
            shown.settle(20);
            shown.tidy();
            ASSERT_EQ(Complaints::list(), "") << action.id;
            ASSERT_EQ(shown.editor().project(), shown.atFirst) << action.id;
        }
    std::string undone;
    for (const auto& id : left)
        if (!apart.contains(id)) undone += id + " ";
    EXPECT_EQ(undone, "caption.join caption.resetTiming sheet.findMissing ")
        << "no caption is in pieces, no file is missing";
}
