#include "app/desktop/exports/ExportSheet.h"
#include "app/desktop/viewer/FrameView.h"
#include "app/editor/commands/VideoCommands.h"
#include "tests/desktop/SpokenWindow.h"

using namespace murbo;

using ExportSheetTest = OnWindow<WindowOfProject>;

TEST_F(ExportSheetTest, anotherVideoIsPutInLineWhileOneIsMade) {
    auto& exports = *shown->project().exports();
    for (const auto* title : {"One", "Two"}) {
        VideoCommands::create(shown->editor(), Video::Aspect::vertical, title);
        shown->putIn();
    }
    shown->settle();
    shown->key(Qt::Key_E, Qt::ControlModifier);
    shown->key(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(exports.running());
    EXPECT_EQ(shown->named("Add to Queue"), nullptr) << "what runs is no form";
    shown->clickOn(shown->named("Export Another…"));
    ASSERT_TRUE(shown->named("Add to Queue"));
    auto* window = shown->window().contentItem();
    const auto name = [&] {
        return WindowOfProject::ofType(window, "Field_", "Save as")
            ->property("text")
            .toString()
            .toStdString();
    };
    EXPECT_EQ(name(), "Two 2.mp4") << "not the file that is being made";
    QMetaObject::invokeMethod(WindowOfProject::ofType(window, "DropDown_", "Video"), "picked", Q_ARG(int, 0));
    EXPECT_EQ(name(), "One.mp4");
    shown->key(Qt::Key_Return, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !exports.running() && exports.waiting() == 0; }, 60000));
    ASSERT_EQ(exports.rows().size(), 2);
    for (const auto& row : exports.rows()) EXPECT_TRUE(std::filesystem::exists(row.file.toStdString()));
    EXPECT_TRUE(shown->named("Play"));
    EXPECT_TRUE(shown->named("Show in Folder"));
}

TEST_F(ExportSheetTest, itsPictureIsAsSharpAsItsPlace) {
    VideoCommands::create(shown->editor(), Video::Aspect::vertical, "One");
    shown->putIn();
    shown->window().resize(900, 620);
    shown->settle();
    const auto find = [&](bool mirror) {
        for (auto* view : shown->window().findChildren<FrameView*>())
            if (mirror ? view->mirrors() != nullptr : view->player() == &shown->editor().playback)
                return view;
        return static_cast<FrameView*>(nullptr);
    };
    auto* viewer = find(false);
    ASSERT_TRUE(viewer);
    const auto width = [](const FrameView& view) { return std::lround(view.picture().width()); };
    shown->key(Qt::Key_E, Qt::ControlModifier);
    auto* copy = find(true);
    ASSERT_TRUE(copy);
    ASSERT_GT(width(*copy), width(*viewer));
    EXPECT_TRUE(shown->waitFor([&] { return viewer->last().width() == width(*copy); }));
    shown->key(Qt::Key_Escape);
    EXPECT_TRUE(shown->waitFor([&] { return viewer->last().width() == width(*viewer); }));
}

using FindingsTest = OnWindow<SpokenWindow>;

/// Two cuts that each end in the middle of what is said: keys mend the one, then the other.
TEST_F(FindingsTest, keysStayInTheListAfterAFindingIsMended) {
    shown->editor().change("Cut", [&](Project& project) {
        auto& cuts = project.videos.edit()[0].cuts.edit();
        auto other = cuts[0];
        cuts[0].end = 0.6;
        other.id = UUID::make();
        std::tie(other.start, other.end) = std::pair(1, 1.4);
        cuts.push_back(other);
    });
    shown->key(Qt::Key_E, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return shown->named("Fix"); }, 10000));
    const auto rest = [&] { shown->settle(400); };
    rest();
    const auto focus = [&] {
        auto* item = shown->window().activeFocusItem();
        return item ? item->property("text").toString() + item->property("about").toString() : QString();
    };
    shown->named("Fix")->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_EQ(focus(), "FixCut 1 ends inside “okay we have one heart”");
    shown->key(Qt::Key_Return);
    rest();
    EXPECT_TRUE(focus().startsWith("FixCut 2 ends inside")) << focus().toStdString();
    shown->key(Qt::Key_Return);
    rest();
    EXPECT_EQ(shown->named("Fix"), nullptr);
    EXPECT_TRUE(shown->window().activeFocusItem()->property("heads").toBool()) << "the list's head";
    shown->key(Qt::Key_Tab);
    EXPECT_NE(focus(), "") << "and Tab goes on from there";
}
