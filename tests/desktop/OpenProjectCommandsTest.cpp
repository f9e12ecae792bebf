#include "app/desktop/Actions.h"
#include "app/desktop/OpenProject.h"
#include "app/editor/commands/LookCommands.h"
#include "tests/desktop/SpokenWindow.h"

#include <QDesktopServices>
#include <filesystem>
#include <set>

using namespace murbo;

namespace {

/// A window in which nearly everything has something to act on.
class BusyWindow : public SpokenWindow {
public:
    BusyWindow() {
        key(Qt::Key_E);
        editor().playback.seek(0.6);
        settle();
        stepsAtFirst = steps();
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
        while (steps() > stepsAtFirst) editor().undo();
        while (steps() < stepsAtFirst) editor().redo();
        settle(10);
    }
    std::size_t stepsAtFirst = 0;
    Project atFirst;
};

/// Takes what the system would open while it lives.
class OpenedFolders : public QObject {
    Q_OBJECT

public:
    OpenedFolders() { QDesktopServices::setUrlHandler("file", this, "take"); }
    ~OpenedFolders() override { QDesktopServices::unsetUrlHandler("file"); }

    Q_INVOKABLE void take(const QUrl& url) { paths << url.toLocalFile(); }

    QStringList paths;
};

using OpenProjectCommandsTest = OnWindow<BusyWindow>;

}

/// Nothing throws, no view complains, and what is a step is taken back by one.
TEST_F(OpenProjectCommandsTest, eachActionIsDoneAndUndone) {
    // These end the window, or open another program's: they have tests of their own.
    const std::set<std::string> apart{"closeWindow", "showInFolder", "library.show"};
    const auto line = shown->atFirst.transcript(shown->atFirst.sources[0].id).lines[0].id;
    const auto cut = shown->atFirst.videos[0].cuts[1].id;
    const std::pair<std::optional<Pick>, Collection> settings[] = {
        {Pick{Pick::Kind::cut, cut, {}}, Collection::clips},
        {Pick{Pick::Kind::caption, line, {}}, Collection::playbooks}};
    std::set<std::string> left;
    for (const auto& action : Actions::all()) left.insert(action.id);
    for (const auto& [pick, page] : settings)
        for (const auto& action : Actions::all()) {
            if (apart.contains(action.id)) continue;
            shown->prepare(pick, page);
            if (shown->project().perform(QString::fromStdString(action.id))) left.erase(action.id);
            shown->settle(20);
            shown->tidy();
            ASSERT_EQ(Complaints::list(), "") << action.id;
            ASSERT_EQ(shown->editor().project(), shown->atFirst) << action.id;
        }
    std::string undone;
    for (const auto& id : left)
        if (!apart.contains(id)) undone += id + " ";
    EXPECT_EQ(undone, "caption.join caption.resetTiming sheet.findMissing ")
        << "no caption is in pieces, no file is missing";
}

TEST_F(OpenProjectCommandsTest, footageAndTheLibraryAreShownInTheirFolders) {
    const OpenedFolders opened;
    EXPECT_TRUE(shown->project().perform("showInFolder"));
    EXPECT_EQ(opened.paths, QStringList{WindowOfProject::text(made::folder())});
    EXPECT_FALSE(shown->project().perform("library.show")) << "no page of it is shown";
    shown->editor().setSidebar({Collection::sounds, {}});
    shown->settle(400);
    EXPECT_TRUE(shown->project().perform("library.show"));
    ASSERT_EQ(opened.paths.size(), 2);
    EXPECT_TRUE(opened.paths[1].endsWith("/Sounds")) << opened.paths[1].toStdString();
    EXPECT_TRUE(std::filesystem::is_directory(opened.paths[1].toStdString()));
    EXPECT_EQ(shown->editor().project(), shown->atFirst);
}

TEST_F(OpenProjectCommandsTest, footageThatHasMovedIsFoundAndItsWindowCloses) {
    const auto there = shown->editor().project().sources[0].path;
    shown->editor().apply([&](Project& project) {
        project.sources.edit()[0].path = shown->folder / "gone" / std::filesystem::path(there).filename();
    });
    EXPECT_TRUE(shown->project().perform("closeWindow"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown->desktop->windows().empty(); }, 5000));
    shown->opened = shown->desktop->open(shown->package());
    shown->settle();
    ASSERT_EQ(shown->editor().missing().size(), 1U);
    EXPECT_TRUE(shown->project().perform("sheet.findMissing"));
    EXPECT_EQ(shown->project().sheet(), "findMissing");
    shown->project().findMissing(WindowOfProject::text(std::filesystem::path(there).parent_path()));
    ASSERT_TRUE(shown->waitFor([&] { return shown->editor().missing().empty(); }));
    EXPECT_EQ(shown->editor().project().sources[0].path, there);
    EXPECT_FALSE(shown->project().perform("sheet.findMissing")) << "nothing is missing any more";
}

#include "OpenProjectCommandsTest.moc"
