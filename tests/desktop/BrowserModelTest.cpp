#include "app/desktop/models/BrowserModel.h"
#include "app/editor/commands/Transcriptions.h"
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

TEST_F(BrowserModelTest, saysWhichClipIsTranscribedAndWhyAnotherCouldNotBe) {
    BrowserModel browser(video.editor);
    video.editor.setSidebar({Collection::clips, {}});
    const auto& clip = video.editor.project().clips[0];
    const SourceStretch stretch{clip.source, {clip.start, clip.end}, clip.tag()};
    const auto& row = browser.rows()[0];
    const auto before = row;
    auto& state = Transcriptions::of(video.editor);
    state.begin(stretch);
    EXPECT_TRUE(row.hearing && !row.failed);
    EXPECT_EQ(row.note, "transcribing…");
    state.end(Transcriptions::Failure{stretch, false, "No luck."});
    EXPECT_TRUE(row.failed && !row.hearing);
    EXPECT_EQ(row.note, "No luck.");
    state.begin(stretch);
    state.end();
    EXPECT_TRUE(row == before) << "what was tried again and went well is as it was";
}
