#include "app/desktop/footage/StreamSheet.h"
#include "platform/base/Files.h"
#include "tests/desktop/WindowOfProject.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

QString path(const std::filesystem::path& file) {
    return QString::fromStdString(file.string());
}

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
        Files::writeWhole(folder / "2026-11-17.csv", "time,label\n0:05:00,boss\n302,again\n0:15:00,falls\n");
    }
    bool read(StreamSheet& sheet) {
        return QTest::qWaitFor([&] { return sheet.ready() || !sheet.problem().isEmpty(); }, 10000);
    }
    std::filesystem::path recording = folder / "2026-11-17 21-03.mp4";
};

}

TEST(StreamSheet, theClipsDrawnAreTheClipsMade) {
    MURBO_NEEDS_FFMPEG();
    StreamWindow shown;
    ASSERT_TRUE(shown.opened);
    StreamSheet sheet(shown.editor());
    sheet.take({path(shown.recording)});
    ASSERT_TRUE(shown.read(sheet));
    EXPECT_EQ(sheet.markersWords(), "3 markers from 2026-11-17.csv");
    EXPECT_EQ(sheet.marks().size(), 3);
    ASSERT_EQ(sheet.clips().size(), 2) << "two markers share a clip";
    EXPECT_TRUE(sheet.clipWords().startsWith("2 clips, C03 to C04")) << sheet.clipWords().toStdString();
    const auto drawn = sheet.clips();

    sheet.setProperty("note", "the boss at last");
    sheet.setProperty("transcribe", false);
    sheet.add();
    const auto project = shown.onDisk();
    const auto& source = project.sources.back();
    EXPECT_EQ(source.note, "the boss at last");
    EXPECT_EQ(source.stream->markersName, "2026-11-17.csv");
    std::vector<const Clip*> made;
    for (const auto& clip : project.clips)
        if (clip.source == source.id) made.push_back(&clip);
    ASSERT_EQ(made.size(), 2U);
    for (std::size_t at = 0; at < made.size(); ++at) {
        const auto row = drawn[static_cast<qsizetype>(at)].toMap();
        EXPECT_EQ(row["tag"].toString().toStdString(), made[at]->tag());
        EXPECT_NEAR(row["from"].toDouble() * source.length, made[at]->start, 1e-6);
        EXPECT_NEAR(row["to"].toDouble() * source.length, made[at]->end, 1e-6);
    }
    EXPECT_EQ(shown.editor().history().undoName(), "Add Stream");
}

TEST(StreamSheet, takesTypedTimesAndDroppedMarkersInThePlaceOfThoseBeside) {
    MURBO_NEEDS_FFMPEG();
    StreamWindow shown;
    ASSERT_TRUE(shown.opened);
    StreamSheet sheet(shown.editor());
    sheet.take({path(shown.recording)});
    ASSERT_TRUE(shown.read(sheet));
    sheet.setTyped("10:00, 1:40\n nonsense");
    EXPECT_EQ(sheet.markersWords(), "2 markers typed");
    EXPECT_EQ(sheet.clips().size(), 2);
    sheet.setTyped("");
    EXPECT_EQ(sheet.clips().size(), 2);
    Files::writeWhole(shown.folder / "other.csv", "600\n");
    sheet.take({path(shown.folder / "other.csv")});
    EXPECT_EQ(sheet.markersWords(), "1 marker from other.csv");
    EXPECT_EQ(sheet.clips().size(), 1);
    sheet.take({path(shown.folder / "picture.png")});
    EXPECT_NE(sheet.problem(), "");
    Files::writeWhole(shown.folder / "broken.mp4", "no movie");
    sheet.clear();
    sheet.take({path(shown.folder / "broken.mp4")});
    ASSERT_TRUE(shown.read(sheet));
    EXPECT_FALSE(sheet.ready());

    EXPECT_TRUE(StreamSheet::isStream({path(shown.recording)}));
    EXPECT_TRUE(StreamSheet::isStream({path(shown.folder / "broken.mp4"), path(shown.folder / "other.csv")}));
    EXPECT_FALSE(StreamSheet::isStream({path(shown.folder / "broken.mp4")}));
    EXPECT_FALSE(StreamSheet::isStream({path(shown.recording), path(shown.folder / "broken.mp4")}));
    EXPECT_FALSE(StreamSheet::isStream({}));
}

TEST(StreamSheet, theStripFillsWithPicturesOfTheRecording) {
    MURBO_NEEDS_FFMPEG();
    StreamWindow shown;
    ASSERT_TRUE(shown.opened);
    shown.opened->takeFootage({path(shown.recording)});
    ASSERT_EQ(shown.project().sheet(), "addStream");
    const auto loaded = [&] { return loadedStills(*shown.window().contentItem()); };
    EXPECT_TRUE(QTest::qWaitFor([&] { return loaded() == 7; }, 10000)) << loaded();
    EXPECT_EQ(Complaints::list(), "");
}
