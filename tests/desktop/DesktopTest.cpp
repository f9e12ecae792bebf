#include "app/desktop/Desktop.h"
#include "app/desktop/timeline/TimelineView.h"
#include "platform/media/MediaFile.h"
#include "tests/desktop/WindowOfProject.h"

#include <QDirIterator>
#include <QQmlComponent>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// Waits up to ten seconds for something to hold.
template <class Holds>
bool waitFor(Holds holds) {
    return QTest::qWaitFor(holds, 10000);
}

}

TEST(Desktop, everyViewLoadsWithoutAComplaint) {
    MURBO_NEEDS_FFMPEG();
    WindowOfProject shown;
    ASSERT_TRUE(shown.opened) << shown.desktop->problem().toStdString();
    QQmlEngine engine;
    QDirIterator files(":/murbo/qml", {"*.qml"}, QDir::Files);
    int count = 0;
    while (files.hasNext()) {
        const QQmlComponent view(&engine, QUrl("qrc" + files.next()));
        EXPECT_TRUE(view.isReady()) << view.errorString().toStdString();
        ++count;
    }
    EXPECT_GT(count, 20);
    for (const auto* sheet : {"export", "newVideo", "addFiles", "renameVideo", "palette", "settings", "keys",
                              "addStream", "history", "saveAs", "duplicate", "closing", "findMissing"}) {
        shown.project().setSheet(sheet);
        shown.settle();
        shown.project().setSheet("");
    }
    shown.desktop->showStart();
    shown.settle();
    EXPECT_EQ(Complaints::list(), "");
}

TEST(Desktop, aVideoIsCutPlayedUndoneAndExportedByMouseAndKeys) {
    MURBO_NEEDS_FFMPEG();
    WindowOfProject shown;
    ASSERT_TRUE(shown.opened);
    const auto start = shown.onDisk();
    auto& editor = shown.editor();

    // The second row is the clip of the first movie.
    shown.click(150, 41 + 44 + 66 * 1.5);
    ASSERT_TRUE(editor.heldClip());
    shown.key(Qt::Key_E);
    EXPECT_EQ(shown.cuts(), 1);
    ASSERT_TRUE(waitFor([&] { return editor.playback.isLoaded(); }));

    editor.setFocus(Viewer::video);
    shown.key(Qt::Key_Space);
    EXPECT_TRUE(waitFor([&] { return editor.playback.time() > 0.3; })) << "it plays";
    EXPECT_TRUE(waitFor([&] { return editor.playback.counts().shown > 3; }));
    shown.key(Qt::Key_Space);
    EXPECT_EQ(editor.playback.rate(), 0);

    shown.key(Qt::Key_Home);
    EXPECT_EQ(editor.playback.time(), 0);
    shown.key(Qt::Key_Right, Qt::ShiftModifier);
    shown.key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_NEAR(editor.playback.time(), 2, 1e-6);
    shown.key(Qt::Key_B, Qt::ControlModifier);
    ASSERT_EQ(shown.cuts(), 2);
    EXPECT_EQ(shown.onDisk(), editor.project()) << "every change is on disk at once";

    // A press on the first cut picks it and goes there; delete takes it out.
    auto* timeline = shown.item<TimelineView>();
    ASSERT_TRUE(timeline);
    const auto row = timeline->mapToScene({0, timeline->shown().track(TimelineRow::picture)->top + 30});
    shown.click(row.x() + timeline->shownSpan().x(0.5), row.y());
    EXPECT_NEAR(editor.playback.time(), 0.5, 0.1);
    shown.key(Qt::Key_Delete);
    EXPECT_EQ(shown.cuts(), 1);
    EXPECT_NEAR(editor.video()->length(), 2, 0.01);

    shown.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown.cuts(), 2);
    EXPECT_EQ(editor.toast(), "Undid Remove Cut");

    shown.key(Qt::Key_E, Qt::ControlModifier);
    ASSERT_EQ(shown.project().sheet(), "export");
    shown.key(Qt::Key_Return, Qt::ControlModifier);
    auto& exports = *shown.project().exports();
    ASSERT_TRUE(waitFor([&] { return exports.running() || !exports.finished().isEmpty(); }));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !exports.running(); }, 60000));
    EXPECT_EQ(exports.problem(), "");
    const auto movie = MediaFile::facts(exports.finished().toStdString());
    EXPECT_NEAR(movie.length, 4, 0.1);
    shown.key(Qt::Key_Escape);
    EXPECT_EQ(shown.project().sheet(), "");

    while (editor.history().undoName()) shown.key(Qt::Key_Z, Qt::ControlModifier);
    auto end = shown.onDisk();
    EXPECT_EQ(end.videos, start.videos);
    EXPECT_EQ(end.clips, start.clips);
    EXPECT_EQ(Complaints::list(), "");
}
