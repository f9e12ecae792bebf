#include "app/desktop/models/MediaArrivals.h"
#include "tests/desktop/WindowOfLibrary.h"

using namespace murbo;

namespace {

struct ArrivingWindow : WindowOfLibrary {
    ArrivingWindow() { toasts.clear(); }
    MediaArrivals& arrivals() { return opened->arriving(); }

    QStringList said;
};

using MediaArrivalsTest = OnWindow<ArrivingWindow>;

}

TEST_F(MediaArrivalsTest, eachIsLaidInItsOrderAndOneThatCannotBeCopiedIsNamed) {
    const auto before = shown->editor().project();
    using ArrivalKind = ArrivingFile::ArrivalKind;
    const auto large = shown->folder.file("large.wav", std::string(8 << 20, 's'));
    shown->arrivals().take({{large, ArrivalKind::sound, 1, "Booms"},
                            {shown->folder / "gone.png", ArrivalKind::overlay, 1, ""},
                            {shown->folder.file("map.png", "x"), ArrivalKind::overlay, 2, ""},
                            {shown->folder.file("song.mp3", "x"), ArrivalKind::song, {}, ""}});
    EXPECT_EQ(shown->editor().project(), before) << "the window goes on while they are copied";
    EXPECT_TRUE(shown->editor().isBusy());
    shown->arrivals().finish();
    EXPECT_EQ(shown->toasts, QStringList{"gone.png could not be copied into the project"});
    ASSERT_EQ(shown->look().sounds.size(), 1U);
    ASSERT_EQ(shown->look().overlays.size(), 1U);
    ASSERT_EQ(shown->look().music.size(), 1U);
    EXPECT_EQ(shown->look().sounds[0].from, "Booms");
    EXPECT_NEAR(shown->look().overlays[0].at, 2, 1e-6);
    EXPECT_NEAR(shown->editor().playback.time(), 2, 1e-6) << "where it is seen";
    EXPECT_EQ(shown->step(), "Add Song") << "the last of them";
    for (int step = 0; step < 3; ++step) shown->editor().undo();
    EXPECT_EQ(shown->editor().project().videos, before.videos);
    shown->arrivals().take({{large, ArrivalKind::sound, 1, ""}});
    shown->arrivals().finish();
    EXPECT_EQ(entriesIn(shown->package() / "media" / "sounds"), 1) << "the very same is kept once";
}

TEST_F(MediaArrivalsTest, nothingComesIntoAVideoThatItWasNotFor) {
    shown->arrivals().take({{shown->folder.file("map.png", "x"), ArrivingFile::ArrivalKind::overlay, 1, ""}});
    shown->project().newVideo("Other", "9:16");
    const auto before = shown->editor().project();
    shown->arrivals().finish();
    EXPECT_EQ(shown->editor().project(), before);
    EXPECT_EQ(shown->toasts, QStringList{"Another video was opened meanwhile"});
    shown->arrivals().take(
        {{shown->folder.file("map.png", "x"), ArrivingFile::ArrivalKind::overlay, {}, ""}});
    shown->arrivals().finish();
    EXPECT_EQ(shown->toasts.last(), "Open a video with cuts first");
}

TEST_F(MediaArrivalsTest, whatIsOnItsWayIsInTheProjectThatIsClosed) {
    const auto large = shown->folder.file("large.wav", std::string(8 << 20, 's'));
    shown->arrivals().take({{large, ArrivingFile::ArrivalKind::sound, 1, ""}});
    shown->desktop.reset();
    const auto kept = shown->onDisk();
    ASSERT_EQ(kept.videos[0].look->sounds.size(), 1U);
    EXPECT_EQ(std::filesystem::file_size(shown->package() / kept.videos[0].look->sounds[0].file), 8U << 20);
    shown->desktop = std::make_unique<Desktop>(SoundPlayer::MakeOutput());
    shown->opened = shown->desktop->open(shown->package());
    EXPECT_EQ(shown->step(), "Add Sound") << "and can be undone";
}
