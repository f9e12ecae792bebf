#include "app/desktop/libraries/BookView.h"
#include "app/desktop/libraries/LibraryModel.h"
#include "app/desktop/timeline/TimelineView.h"
#include "platform/base/Files.h"
#include "tests/desktop/WindowOfLibrary.h"

#include <gtest/gtest.h>

using namespace murbo;

namespace {

/// The first item of a type that is drawn within another.
template <class Item>
Item* within(QQuickItem* item) {
    if (auto* found = qobject_cast<Item*>(item)) return found;
    for (auto* child : item->childItems())
        if (auto* found = within<Item>(child)) return found;
    return nullptr;
}

}

TEST(LibraryModel, everyKindComesIntoTheVideoAndOutAgain) {
    MURBO_NEEDS_FFMPEG();
    WindowOfLibrary shown;
    ASSERT_TRUE(shown.opened);
    const auto start = shown.onDisk();
    LibraryModel model(shown.editor(), shown.opened->arriving(), {});
    ASSERT_TRUE(shown.turn(model, Collection::layouts));
    ASSERT_GT(model.rowCount(), 0);
    EXPECT_TRUE(model.add(0));
    ASSERT_EQ(shown.look().shots.size(), 1U);
    EXPECT_EQ(shown.look().shots[0].playbook, model.rows()[0].book->id());

    ASSERT_TRUE(shown.turn(model, Collection::playbooks));
    EXPECT_TRUE(model.addAt(0, 1.5));
    ASSERT_EQ(shown.look().overlays.size(), 1U);
    EXPECT_NEAR(shown.look().overlays[0].at, 1.5, 1e-6);

    ASSERT_TRUE(shown.turn(model, Collection::generators));
    EXPECT_TRUE(model.addAt(0, 3.9));
    ASSERT_EQ(shown.cuts(), 2U);
    EXPECT_TRUE(shown.editor().video()->cuts[1].generator) << "at the seam that is nearest";

    while (shown.editor().history().undoName() != "Add Clip") shown.editor().undo();
    EXPECT_EQ(shown.onDisk().videos, start.videos);
}

TEST(LibraryModel, soundsAreListedByFolderAndHeard) {
    MURBO_NEEDS_FFMPEG();
    WindowOfLibrary shown;
    ASSERT_TRUE(shown.opened);
    LibraryModel model(shown.editor(), shown.opened->arriving(), {});
    ASSERT_TRUE(shown.turn(model, Collection::sounds));
    EXPECT_EQ(model.emptyWords(), "No sounds yet: put sound files, or folders of them, into");
    EXPECT_TRUE(model.folder().endsWith("library/Sounds"));

    const auto folder = Library::sounds() / "Booms";
    std::filesystem::create_directories(folder);
    std::filesystem::copy_file(made::file("boom.wav", "-f lavfi -i sine=frequency=80:duration=0.4"),
                               folder / "boom.wav");
    Files::writeWhole(folder / "broken.wav", "no sound");
    ASSERT_TRUE(shown.turn(model, Collection::music));
    ASSERT_TRUE(shown.turn(model, Collection::sounds));
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
    shown.editor().playback.playPause();
    EXPECT_EQ(model.playing(), "") << "gives way to the viewers";
    shown.editor().playback.pause();
    EXPECT_TRUE(model.add(boom));
    shown.opened->arriving().finish();
    ASSERT_EQ(shown.look().sounds.size(), 1U);
    EXPECT_EQ(shown.look().sounds[0].from, "Booms");
    EXPECT_TRUE(std::filesystem::exists(shown.package() / "media"));
}

TEST(LibraryModel, aPageIsWalkedAndPutInByKeys) {
    MURBO_NEEDS_FFMPEG();
    WindowOfLibrary shown;
    ASSERT_TRUE(shown.opened);
    shown.editor().setSidebar({Collection::playbooks, {}});
    shown.settle(400);
    shown.key(Qt::Key_F, Qt::ControlModifier);
    shown.key(Qt::Key_Down);
    shown.key(Qt::Key_Down);
    shown.key(Qt::Key_Return);
    EXPECT_EQ(shown.look().overlays.size(), 1U);
    EXPECT_EQ(Complaints::list(), "");
}

TEST(LibraryModel, aRowsMenuOpensByMouseAndKeys) {
    MURBO_NEEDS_FFMPEG();
    WindowOfLibrary shown;
    ASSERT_TRUE(shown.opened);
    shown.editor().setSidebar({Collection::playbooks, {}});
    shown.settle(400);
    const auto open = [&] { return shown.project().property("menuOpen").toBool(); };
    auto* card = within<BookView>(shown.window().contentItem());
    ASSERT_TRUE(card);
    shown.clickOn(card, Qt::RightButton);
    ASSERT_TRUE(open());
    auto* line = shown.named("Add to the Video");
    ASSERT_TRUE(line);
    const auto far = line->mapToScene({}) - card->mapToScene({card->width() / 2, card->height() / 2});
    EXPECT_LT(std::abs(far.x()) + std::abs(far.y()), 40) << "where the mouse is";
    shown.key(Qt::Key_Return);
    EXPECT_EQ(shown.look().overlays.size(), 1U);
    shown.key(Qt::Key_F, Qt::ControlModifier);
    shown.key(Qt::Key_Down);
    for (const auto& [key, held] :
         {std::pair(Qt::Key_Menu, Qt::NoModifier), std::pair(Qt::Key_F10, Qt::ShiftModifier)}) {
        shown.key(key, held);
        EXPECT_TRUE(open());
        shown.key(Qt::Key_Return);
        EXPECT_FALSE(open());
    }
    EXPECT_EQ(shown.look().overlays.size(), 3U);
    EXPECT_EQ(Complaints::list(), "");
}

TEST(LibraryModel, playbooksThatAreDroppedComeIntoTheLibraryOrSayWhyNot) {
    MURBO_NEEDS_FFMPEG();
    WindowOfLibrary shown;
    ASSERT_TRUE(shown.opened);
    const auto given = shown.folder / "Star.mbplay";
    const auto path = [](const std::filesystem::path& file) { return QString::fromStdString(file.string()); };
    Files::createFolder(given);
    Files::createFolder(shown.folder / "Bad.mbplay");
    Files::writeWhole(given / "playbook.json",
                      R"({"id": "star", "name": "My Star", "layers": [{"text": "Hi"}]})");
    Files::writeWhole(shown.folder / "Bad.mbplay/playbook.json", R"({"name": "Bad", "layers": 7})");
    shown.opened->takeFootage({path(given)});
    shown.settle(100);
    EXPECT_EQ(shown.project().sheet(), "") << "it is no footage";
    EXPECT_EQ(shown.editor().sidebar().collection, Collection::playbooks);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown.named("My Star") != nullptr; }, 5000));
    EXPECT_EQ(Playbooks::find("star")->playbook.name, "My Star");

    QString said;
    QObject::connect(&shown.project(), &OpenProject::toast, [&](const QString& words) { said = words; });
    shown.opened->takeFootage({path(shown.folder / "Bad.mbplay")});
    shown.settle(100);
    EXPECT_TRUE(said.startsWith("“Bad.mbplay” did not come into the library. ")) << said.toStdString();
    Playbooks::dropListing();
    EXPECT_EQ(Playbooks::leftOut().size(), 0U);
    EXPECT_EQ(Complaints::list(), "");
}

/// A fast hand's moves come as one to a program that is busy.
TEST(LibraryModel, aPlaybookIsDraggedToItsTimeByTheMouse) {
    MURBO_NEEDS_FFMPEG();
    WindowOfLibrary shown;
    ASSERT_TRUE(shown.opened);
    shown.editor().setSidebar({Collection::playbooks, {}});
    shown.settle(400);
    auto* card = within<BookView>(shown.window().contentItem());
    auto* timeline = shown.item<TimelineView>();
    ASSERT_TRUE(card && timeline);
    const auto from = card->mapToScene({40, 40}).toPoint();
    const auto before = shown.editor().project();
    for (const int moves : {8, 1}) {
        const double time = moves == 1 ? 1 : 2.5;
        const auto to = timeline->mapToScene({timeline->shownSpan().x(time), 60}).toPoint();
        shown.carry(from, to, moves);
        ASSERT_EQ(shown.look().overlays.size(), 1U) << moves << " moves";
        EXPECT_NEAR(shown.look().overlays[0].at, time, 0.1);
        shown.key(Qt::Key_Z, Qt::ControlModifier);
        ASSERT_EQ(shown.editor().project(), before);
    }
    EXPECT_EQ(Complaints::list(), "");
}
