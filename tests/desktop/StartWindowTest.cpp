#include "app/desktop/RecentProjects.h"
#include "tests/desktop/OnWindow.h"

using namespace murbo;

using StartWindowTest = OnWindow<WindowOfProject>;

TEST_F(StartWindowTest, footageDroppedThereStartsAProjectAndAsksForANameAlone) {
    auto& desktop = *shown->desktop;
    desktop.showStart();
    shown->settle();
    const QUrl footage = QUrl::fromLocalFile(QString::fromStdString(made::file("plain.mp4", "").string()));
    QMetaObject::invokeMethod(desktop.startWindow(), "take", Q_ARG(QVariant, QVariantList{footage}));
    shown->settle();
    for (const auto key : {Qt::Key_F, Qt::Key_A, Qt::Key_L, Qt::Key_L, Qt::Key_S})
        QTest::keyClick(desktop.startWindow(), key);
    QTest::keyClick(desktop.startWindow(), Qt::Key_Return);
    ASSERT_EQ(desktop.windows().size(), 2U) << desktop.problem().toStdString();
    auto& made = *desktop.windows().back();
    EXPECT_EQ(made.project().name(), "falls");
    EXPECT_EQ(made.project().package().parent_path(), desktop.projectFolder().toStdString());
    EXPECT_EQ(made.project().sheet(), "addFiles");
    QTest::qWait(500);
    QTest::keyClick(&made.window(), Qt::Key_Return, Qt::ControlModifier);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return made.project().editor().project().sources.size() == 1; }, 10000));

    const auto open = std::vector{shown->package(), made.project().package()};
    EXPECT_EQ(RecentProjects::open(), open);
    EXPECT_FALSE(desktop.startWindow()->isVisible());

    // A second one of that name is refused in words, and the name can be changed.
    desktop.showStart();
    EXPECT_FALSE(desktop.create("falls", desktop.projectFolder(), {}));
    EXPECT_EQ(desktop.problem(), "“falls.mbproj” is already there.");
    made.window().close();
    ASSERT_TRUE(shown->waitFor([&] { return desktop.windows().size() == 1; }));
    EXPECT_EQ(RecentProjects::open(), std::vector{shown->package()}) << "what is still open";
    desktop.tell("Of the one that is left");
    EXPECT_EQ(shown->toasts.last(), "Of the one that is left");
}

TEST_F(StartWindowTest, aProjectThatAnotherHoldsOrThatIsBrokenSaysSo) {
    Desktop other({});
    EXPECT_FALSE(other.open(shown->package()));
    EXPECT_EQ(other.problem(), "“p.mbproj” is open in Murbo. Close it there first.");
    EXPECT_TRUE(other.startWindow());
    EXPECT_FALSE(other.open(shown->folder / "gone.mbproj"));
    EXPECT_EQ(other.problem(),
              "“gone.mbproj” could not be opened. It is damaged or is not an Murbo project.");
    EXPECT_TRUE(shown->desktop->open(shown->package() / "")) << "the same one, by another spelling";
    EXPECT_EQ(shown->desktop->windows().size(), 1U);
}
