#include "app/desktop/Actions.h"
#include "app/desktop/OpenProject.h"
#include "app/desktop/captions/CaptionEdits.h"
#include "app/editor/commands/CaptionCommands.h"
#include "app/editor/commands/LookCommands.h"
#include "tests/desktop/SpokenWindow.h"

#include <QDesktopServices>
#include <filesystem>
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

/// Takes what the system would open while it lives.
class OpenedFolders : public QObject {
    Q_OBJECT

public:
    OpenedFolders() { QDesktopServices::setUrlHandler("file", this, "take"); }
    ~OpenedFolders() override { QDesktopServices::unsetUrlHandler("file"); }

    Q_INVOKABLE void take(const QUrl& url) { paths << url.toLocalFile(); }

    QStringList paths;
};

}

/// Nothing throws, no view complains, and what is a step is taken back by one.
TEST(OpenProjectCommands, eachActionIsDoneAndUndone) {
    MURBO_NEEDS_FFMPEG();
    BusyWindow shown;
    // These end the window, or open another program's: they have tests of their own.
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

TEST(OpenProjectCommands, aCaptionInPiecesIsJoinedAndGetsItsTimesBack) {
    MURBO_NEEDS_FFMPEG();
    BusyWindow shown;
    const auto line = shown.atFirst.transcript(shown.atFirst.sources[0].id).lines[0].id;
    const auto caption = [&] { return *CaptionEdits::whole(shown.editor(), line); };
    const auto whole = caption().texts();
    ASSERT_EQ(whole.size(), 1U);
    CaptionCommands::breakCaption(shown.editor(), line, {"okay we have", "one heart"});
    const auto broken = shown.editor().project();
    shown.editor().setPicked(Pick{Pick::Kind::caption, line, 0});
    EXPECT_FALSE(shown.project().perform("caption.resetTiming")) << "its times are its own";
    EXPECT_TRUE(shown.project().perform("caption.join"));
    EXPECT_EQ(caption().texts(), whole);
    EXPECT_EQ(shown.step(), "Join Caption");
    shown.editor().undo();
    EXPECT_EQ(shown.editor().project(), broken);

    const auto usual = caption().cues[1].start;
    CaptionCommands::retimePieces(shown.editor(), line, {"okay we have", "one heart"}, {0.9});
    shown.editor().closeDrag("Drag");
    const auto retimed = shown.editor().project();
    ASSERT_GT(caption().cues[1].start, usual);
    shown.editor().setPicked(Pick{Pick::Kind::caption, line, 0});
    EXPECT_TRUE(shown.project().perform("caption.resetTiming"));
    EXPECT_NEAR(caption().cues[1].start, usual, 1e-9);
    EXPECT_EQ(caption().texts(), (std::vector<std::string>{"okay we have", "one heart"}));
    EXPECT_EQ(shown.step(), "Reset Caption Timing");
    shown.editor().undo();
    EXPECT_EQ(shown.editor().project(), retimed);
    shown.editor().undo();
    shown.editor().undo();
    EXPECT_EQ(shown.editor().project(), shown.atFirst);
}

TEST(OpenProjectCommands, footageAndTheLibraryAreShownInTheirFolders) {
    MURBO_NEEDS_FFMPEG();
    BusyWindow shown;
    const OpenedFolders opened;
    const auto folderOf = [](const std::string& file) {
        return QString::fromStdString(std::filesystem::path(file).parent_path().string());
    };
    EXPECT_TRUE(shown.project().perform("showInFolder"));
    EXPECT_EQ(opened.paths, QStringList{folderOf(shown.atFirst.sources[0].path)});
    EXPECT_FALSE(shown.project().perform("library.show")) << "no page of it is shown";
    shown.editor().setSidebar({Collection::sounds, {}});
    shown.settle(400);
    EXPECT_TRUE(shown.project().perform("library.show"));
    ASSERT_EQ(opened.paths.size(), 2);
    EXPECT_TRUE(opened.paths[1].endsWith("/Sounds")) << opened.paths[1].toStdString();
    EXPECT_TRUE(std::filesystem::is_directory(opened.paths[1].toStdString()));
    EXPECT_EQ(shown.editor().project(), shown.atFirst);
    EXPECT_EQ(Complaints::list(), "");
}

TEST(OpenProjectCommands, footageThatHasMovedIsFoundAndItsWindowCloses) {
    MURBO_NEEDS_FFMPEG();
    SpokenWindow shown;
    const auto there = shown.editor().project().sources[0].path;
    shown.editor().apply([&](Project& project) {
        project.sources.edit()[0].path = shown.folder / "gone" / std::filesystem::path(there).filename();
    });
    EXPECT_TRUE(shown.project().perform("closeWindow"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown.desktop->windows().empty(); }, 5000));
    shown.opened = shown.desktop->open(shown.package());
    shown.settle();
    ASSERT_EQ(shown.editor().missing().size(), 1U);
    EXPECT_TRUE(shown.project().perform("sheet.findMissing"));
    EXPECT_EQ(shown.project().sheet(), "findMissing");
    const auto step = shown.step();
    QString said;
    QObject::connect(&shown.project(), &OpenProject::toast, [&](const QString& words) { said = words; });
    shown.project().findMissing(QString::fromStdString(std::filesystem::path(there).parent_path().string()));
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown.editor().missing().empty(); }, 10000));
    EXPECT_EQ(shown.editor().project().sources[0].path, there);
    EXPECT_EQ(said, "Found 1 missing file");
    EXPECT_EQ(shown.step(), step) << "where a file lies is no step";
    EXPECT_FALSE(shown.project().perform("sheet.findMissing")) << "nothing is missing any more";
}

#include "OpenProjectCommandsTest.moc"
