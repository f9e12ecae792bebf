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

TEST_F(LibraryModelTest, aRowsMenuOpensByMouseAndKeys) {
    shown->editor().setSidebar({Collection::playbooks, {}});
    shown->settle(400);
    const auto open = [&] { return shown->project().property("menuOpen").toBool(); };
    auto* card = WindowOfProject::ofType(shown->window().contentItem(), "murbo::BookView");
    ASSERT_TRUE(card);
    shown->clickOn(card, Qt::RightButton);
    ASSERT_TRUE(open());
    auto* line = shown->named("Add to the Video");
    ASSERT_TRUE(line);
    const auto far = line->mapToScene({}) - card->mapToScene({card->width() / 2, card->height() / 2});
    EXPECT_LT(std::abs(far.x()) + std::abs(far.y()), 40) << "where the mouse is";
    shown->key(Qt::Key_Return);
    EXPECT_EQ(shown->look().overlays.size(), 1U);
    shown->key(Qt::Key_F, Qt::ControlModifier);
    shown->key(Qt::Key_Down);
    for (const auto& [key, held] :
         {std::pair(Qt::Key_Menu, Qt::NoModifier), std::pair(Qt::Key_F10, Qt::ShiftModifier)}) {
        shown->key(key, held);
        EXPECT_TRUE(open());
        shown->key(Qt::Key_Return);
        EXPECT_FALSE(open());
    }
    EXPECT_EQ(shown->look().overlays.size(), 3U);
}

/// A fast hand's moves come as one to a program that is busy.
TEST_F(LibraryModelTest, aPlaybookIsDraggedToItsTimeByTheMouse) {
    shown->editor().setSidebar({Collection::playbooks, {}});
    shown->settle(400);
    auto* card = WindowOfProject::ofType(shown->window().contentItem(), "murbo::BookView");
    ASSERT_TRUE(card);
    shown->carry(card->mapToScene({40, 40}).toPoint(), shown->onTimeline(2.5), 1);
    ASSERT_EQ(shown->look().overlays.size(), 1U);
    EXPECT_NEAR(shown->look().overlays[0].at, 2.5, 0.1);
}
