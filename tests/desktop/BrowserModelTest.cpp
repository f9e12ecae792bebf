#include "app/desktop/models/BrowserModel.h"
#include "tests/desktop/TimelineVideo.h"

#include <QSignalSpy>

using namespace murbo;

using BrowserModelTest = OnVideo<TimelineVideo>;

TEST_F(BrowserModelTest, aChangeElsewhereTouchesNoRow) {
    BrowserModel browser(video.editor);
    video.editor.setSidebar({Collection::clips, {}});
    const QSignalSpy inserted(&browser, &QAbstractItemModel::rowsInserted);
    const QSignalSpy changed(&browser, &QAbstractItemModel::dataChanged);
    video.editor.change("Retitle", [](Project& project) { project.videos.edit()[0].title = "Other"; });
    EXPECT_EQ(inserted.count() + changed.count(), 0);
}
