#include "app/desktop/models/BrowserModel.h"
#include "tests/desktop/TimelineVideo.h"

#include <QSignalSpy>

using namespace murbo;

using BrowserModelTest = OnVideo<TimelineVideo>;

TEST_F(BrowserModelTest, followsTheSidebarAndTheWordsTyped) {
    BrowserModel browser(video.editor);
    EXPECT_EQ(browser.rowCount(), 2) << "a source, and its clip";
    video.editor.setSidebar({Collection::videos, {}});
    ASSERT_EQ(browser.rowCount(), 1);
    EXPECT_EQ(browser.tagOf(0), "V1");
    video.editor.setSidebar({Collection::clips, {}});
    browser.setWords("SECOND");
    EXPECT_EQ(browser.rowCount(), 1) << "found by what is said";
    browser.setWords("nothing of that kind");
    EXPECT_EQ(browser.rowCount(), 0);
    EXPECT_FALSE(browser.emptyWords().isEmpty());
}

TEST_F(BrowserModelTest, picksAndHolds) {
    BrowserModel browser(video.editor);
    video.editor.setSidebar({Collection::clips, {}});
    browser.pick(0, Qt::NoModifier);
    EXPECT_EQ(video.editor.heldClip(), video.editor.project().clips[0].id);
    EXPECT_EQ(video.editor.heldSource(), video.editor.project().clips[0].source) << "marks go onto it";
    EXPECT_EQ(video.editor.pickedClips().size(), 1);
    EXPECT_EQ(video.editor.focus(), Viewer::source);
    EXPECT_EQ(browser.heldRow(), 0);
    browser.pick(0, Qt::ControlModifier);
    EXPECT_TRUE(video.editor.pickedClips().empty());
    browser.pick(7, 0);
    browser.activate(-1);
}

TEST_F(BrowserModelTest, aChangeElsewhereTouchesNoRow) {
    BrowserModel browser(video.editor);
    video.editor.setSidebar({Collection::clips, {}});
    const QSignalSpy inserted(&browser, &QAbstractItemModel::rowsInserted);
    const QSignalSpy changed(&browser, &QAbstractItemModel::dataChanged);
    video.editor.change("Retitle", [](Project& project) { project.videos.edit()[0].title = "Other"; });
    EXPECT_EQ(inserted.count() + changed.count(), 0);
}
