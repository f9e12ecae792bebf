#include "app/desktop/footage/StreamSheet.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

namespace {

/// How many of the strip's pictures are there.
int loadedStills(const QQuickItem& item) {
    int count = item.objectName() == "recordingStill" && item.property("status").toInt() == 1;
    for (const auto* child : item.childItems()) count += loadedStills(*child);
    return count;
}

/// A recording of 20 minutes with markers beside it.
class StreamWindow : public WindowOfProject {
public:
    StreamWindow() {
        std::filesystem::copy_file(
            made::file("stream.mp4",
                       "-f lavfi -i color=c=navy:size=64x36:rate=1:duration=1200 -pix_fmt yuv420p"),
            recording);
        folder.file("2026-11-17.csv", "time,label\n0:05:00,boss\n302,again\n0:15:00,falls\n");
    }
    bool read(StreamSheet& sheet) {
        return QTest::qWaitFor([&] { return sheet.ready() || !sheet.problem().isEmpty(); }, 10000);
    }
    std::filesystem::path recording = folder / "2026-11-17 21-03.mp4";
};

using StreamSheetTest = OnWindow<StreamWindow>;

}

TEST_F(StreamSheetTest, theClipsDrawnAreTheClipsMade) {
    StreamSheet sheet(shown->editor());
    sheet.take({WindowOfProject::text(shown->recording)});
    ASSERT_TRUE(shown->read(sheet));
    EXPECT_EQ(sheet.markersWords(), "3 markers from 2026-11-17.csv");
    EXPECT_EQ(sheet.marks().size(), 3);
    ASSERT_EQ(sheet.clips().size(), 2) << "two markers share a clip";
    EXPECT_TRUE(sheet.clipWords().startsWith("2 clips, C03 to C04")) << sheet.clipWords().toStdString();

    const auto drawn = sheet.clips();
    sheet.setProperty("note", "the boss at last");
    sheet.setProperty("transcribe", false);
    sheet.add();
    const auto project = shown->onDisk();
    const auto& source = project.sources.back();
    EXPECT_EQ(source.note, "the boss at last");
    EXPECT_EQ(source.stream->markersName, "2026-11-17.csv");
    ASSERT_EQ(project.clips.size(), 4) << "with those of the window's project";
    for (int at = 0; at < 2; ++at) {
        const auto row = drawn[at].toMap();
        const auto& clip = project.clips[static_cast<std::size_t>(2 + at)];
        EXPECT_EQ(row["tag"].toString().toStdString(), clip.tag());
        EXPECT_NEAR(row["from"].toDouble() * source.length, clip.start, 1e-6);
        EXPECT_NEAR(row["to"].toDouble() * source.length, clip.end, 1e-6);
    }
    EXPECT_EQ(shown->step(), "Add Stream");
}

TEST_F(StreamSheetTest, isOneRecordingWithMarkers) {
    const auto recording = WindowOfProject::text(shown->recording);
    const auto markers = WindowOfProject::text(shown->folder.file("other.csv", "600\n"));
    const auto broken = WindowOfProject::text(shown->folder.file("broken.mp4", "no movie"));
    EXPECT_TRUE(StreamSheet::isStream({recording}));
    EXPECT_TRUE(StreamSheet::isStream({broken, markers}));
    EXPECT_FALSE(StreamSheet::isStream({broken}));
    EXPECT_FALSE(StreamSheet::isStream({recording, broken}));
    EXPECT_FALSE(StreamSheet::isStream({}));
}

TEST_F(StreamSheetTest, theStripFillsWithPicturesOfTheRecording) {
    shown->opened->takeFootage({WindowOfProject::text(shown->recording)});
    ASSERT_EQ(shown->project().sheet(), "addStream");
    const auto loaded = [&] { return loadedStills(*shown->window().contentItem()); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return loaded() == 7; }, 10000)) << loaded();
}
