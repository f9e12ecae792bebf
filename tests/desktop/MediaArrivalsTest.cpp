#include "app/desktop/models/MediaArrivals.h"
#include "tests/desktop/WindowOfLibrary.h"

#include <fstream>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

class ArrivingWindow : public WindowOfLibrary {
public:
    ArrivingWindow() {
        QObject::connect(&project(), &OpenProject::toast, [this](const QString& words) { said << words; });
    }
    std::filesystem::path file(const std::string& name, const std::string& bytes = "x") const {
        std::ofstream(folder / name) << bytes;
        return folder / name;
    }
    MediaArrivals& arrivals() { return opened->arriving(); }

    QStringList said;
};

}

TEST(MediaArrivals, eachIsLaidInItsOrderAndOneThatCannotBeCopiedIsNamed) {
    MURBO_NEEDS_FFMPEG();
    ArrivingWindow shown;
    ASSERT_TRUE(shown.opened);
    const auto before = shown.editor().project();
    using ArrivalKind = ArrivingFile::ArrivalKind;
    const auto large = shown.file("large.wav", std::string(8 << 20, 's'));
    shown.arrivals().take({{large, ArrivalKind::sound, 1, "Booms"},
                           {shown.folder / "gone.png", ArrivalKind::overlay, 1, ""},
                           {shown.file("map.png"), ArrivalKind::overlay, 2, ""},
                           {shown.file("song.mp3"), ArrivalKind::song, {}, ""}});
    EXPECT_EQ(shown.editor().project(), before) << "the window goes on while they are copied";
    EXPECT_TRUE(shown.editor().isBusy());
    shown.arrivals().finish();
    EXPECT_EQ(shown.said, QStringList{"gone.png could not be copied into the project"});
    ASSERT_EQ(shown.look().sounds.size(), 1U);
    ASSERT_EQ(shown.look().overlays.size(), 1U);
    ASSERT_EQ(shown.look().music.size(), 1U);
    EXPECT_EQ(shown.look().sounds[0].from, "Booms");
    EXPECT_NEAR(shown.look().overlays[0].at, 2, 1e-6);
    EXPECT_NEAR(shown.editor().playback.time(), 2, 1e-6) << "where it is seen";
    EXPECT_EQ(shown.editor().history().undoName(), "Add Song") << "the last of them";
    for (int step = 0; step < 3; ++step) shown.editor().undo();
    EXPECT_EQ(shown.editor().project().videos, before.videos);
    shown.arrivals().take({{large, ArrivalKind::sound, 1, ""}});
    shown.arrivals().finish();
    std::size_t copies = 0;
    for (const auto& entry : std::filesystem::directory_iterator(shown.package() / "media" / "sounds"))
        copies += entry.is_regular_file();
    EXPECT_EQ(copies, 1U) << "the very same is kept once";
}

TEST(MediaArrivals, nothingComesIntoAVideoThatItWasNotFor) {
    MURBO_NEEDS_FFMPEG();
    ArrivingWindow shown;
    ASSERT_TRUE(shown.opened);
    shown.arrivals().take({{shown.file("map.png"), ArrivingFile::ArrivalKind::overlay, 1, ""}});
    shown.project().newVideo("Other", "9:16");
    const auto before = shown.editor().project();
    shown.arrivals().finish();
    EXPECT_EQ(shown.editor().project(), before);
    EXPECT_EQ(shown.said, QStringList{"Another video was opened meanwhile"});
    shown.arrivals().take({{shown.file("map.png"), ArrivingFile::ArrivalKind::overlay, {}, ""}});
    shown.arrivals().finish();
    EXPECT_EQ(shown.said.last(), "Open a video with cuts first");
}

TEST(MediaArrivals, whatIsOnItsWayIsInTheProjectThatIsClosed) {
    MURBO_NEEDS_FFMPEG();
    ArrivingWindow shown;
    ASSERT_TRUE(shown.opened);
    const auto large = shown.file("large.wav", std::string(8 << 20, 's'));
    shown.arrivals().take({{large, ArrivingFile::ArrivalKind::sound, 1, ""}});
    shown.desktop.reset();
    const auto kept = shown.onDisk();
    ASSERT_EQ(kept.videos[0].look->sounds.size(), 1U);
    EXPECT_EQ(std::filesystem::file_size(shown.package() / kept.videos[0].look->sounds[0].file), 8U << 20);
    shown.desktop = std::make_unique<Desktop>(SoundPlayer::MakeOutput());
    shown.opened = shown.desktop->open(shown.package());
    EXPECT_EQ(shown.editor().history().undoName(), "Add Sound") << "and can be undone";
}
