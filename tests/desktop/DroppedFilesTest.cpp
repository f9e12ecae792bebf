#include "app/desktop/footage/DroppedFiles.h"
#include "tests/desktop/WindowOfLibrary.h"

using namespace murbo;

using DroppedFilesTest = OnWindow<WindowOfLibrary>;

TEST(DroppedFiles, arePutWhereTheyAreFor) {
    const auto files =
        DroppedFiles::sorted({"/x/a.MP4", "/x/b.PNG", "/x/c.wav", "/x/d", "/x/e.csv", "/x/f.mbplay"});
    EXPECT_EQ(files.footage, (QStringList{"/x/a.MP4", "/x/d", "/x/e.csv"}));
    EXPECT_EQ(files.pictures, QStringList{"/x/b.PNG"});
    EXPECT_EQ(files.sounds, QStringList{"/x/c.wav"});
    EXPECT_EQ(files.playbooks, QStringList{"/x/f.mbplay"});
}

TEST_F(DroppedFilesTest, aPictureAndASoundComeIntoTheVideoAtThePlayhead) {
    const auto start = shown->onDisk();
    shown->editor().playback.seek(1);
    const auto picture = made::file("map.png", "-f lavfi -i color=c=red:size=64x64 -frames:v 1");
    const auto sound = made::file("clap.wav", "-f lavfi -i sine=frequency=80:duration=0.4");
    shown->opened->takeFootage({WindowOfProject::text(picture), WindowOfProject::text(sound)});
    EXPECT_EQ(shown->project().sheet(), "");
    shown->opened->arriving().finish();
    ASSERT_EQ(shown->look().overlays.size(), 1U);
    ASSERT_EQ(shown->look().sounds.size(), 1U);
    EXPECT_NEAR(shown->look().overlays[0].at, 1, 0.05);
    shown->editor().undo();
    shown->editor().undo();
    EXPECT_EQ(shown->onDisk().videos, start.videos);
}
