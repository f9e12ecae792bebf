#include "app/desktop/libraries/LibraryModel.h"
#include "platform/base/Files.h"
#include "tests/desktop/WindowOfLibrary.h"

using namespace murbo;

using LibraryModelTest = OnWindow<WindowOfLibrary>;

TEST_F(LibraryModelTest, soundsAreListedByFolderAndHeard) {
    LibraryModel model(shown->editor(), shown->opened->arriving(), {});
    ASSERT_TRUE(shown->turn(model, Collection::sounds));
    EXPECT_EQ(model.emptyWords(), "No sounds yet: put sound files, or folders of them, into");
    EXPECT_TRUE(model.folder().endsWith("library/Sounds"));

    const auto folder = Library::sounds() / "Booms";
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(made::file("boom.wav", "-f lavfi -i sine=frequency=80:duration=0.4"),
                               folder / "boom.wav");
    Files::writeWhole(folder / "broken.wav", "no sound");
    ASSERT_TRUE(shown->turn(model, Collection::music));
    ASSERT_TRUE(shown->turn(model, Collection::sounds));
    const int boom = WindowOfLibrary::row(model, "boom");
    ASSERT_GE(boom, 0);
    EXPECT_EQ(model.rows()[static_cast<std::size_t>(boom)].group, "Booms");
    const auto lengthOf = [&](int row) { return model.rows()[static_cast<std::size_t>(row)].length; };
    EXPECT_TRUE(QTest::qWaitFor([&] { return lengthOf(boom) == "0:00.40"; }, 5000));
    model.play(WindowOfLibrary::row(model, "broken"));
    EXPECT_EQ(model.playing(), "");
    model.play(boom);
    EXPECT_NE(model.playing(), "");
    EXPECT_TRUE(QTest::qWaitFor([&] { return model.playing().isEmpty(); }, 3000)) << "to its end";
    model.play(boom);
    shown->editor().playback.playPause();
    EXPECT_EQ(model.playing(), "") << "gives way to the viewers";
    shown->editor().playback.pause();
    EXPECT_TRUE(model.add(boom));
    shown->opened->arriving().finish();
    ASSERT_EQ(shown->look().sounds.size(), 1U);
    EXPECT_EQ(shown->look().sounds[0].from, "Booms");
    EXPECT_TRUE(std::filesystem::exists(shown->package() / "media"));
}
