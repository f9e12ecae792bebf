#include "app/desktop/Desktop.h"
#include "app/desktop/RecentProjects.h"
#include "tests/desktop/OnWindow.h"

#include <QDirIterator>
#include <QQmlComponent>

using namespace murbo;

using DesktopTest = OnWindow<WindowOfProject>;

TEST_F(DesktopTest, everyViewLoadsWithoutAComplaint) {
    QQmlEngine engine;
    QDirIterator files(":/murbo/qml", {"*.qml"}, QDir::Files);
    int count = 0;
    while (files.hasNext()) {
        const QQmlComponent view(&engine, QUrl("qrc" + files.next()));
        EXPECT_TRUE(view.isReady()) << view.errorString().toStdString();
        ++count;
    }
    EXPECT_GT(count, 20);
}

TEST_F(DesktopTest, opensWhatWasOpenLastAndElseTheStartWindow) {
    shown->desktop.reset();
    ASSERT_EQ(RecentProjects::open(), std::vector{shown->package()}) << "a crash leaves them so";
    RecentProjects::setOpen({shown->folder / "gone.mbproj", shown->package()});
    {
        Desktop again({});
        again.start({});
        ASSERT_EQ(again.windows().size(), 1U);
        EXPECT_EQ(again.windows()[0]->project().package(), shown->package());
        EXPECT_EQ(again.problem(), "") << "the one that is gone is passed over";
        EXPECT_FALSE(again.startWindow());
        EXPECT_FALSE(again.open(shown->folder / "gone.mbproj")); // as a second start asks for it
        EXPECT_EQ(again.windows()[0]->project().editor().toast(), again.problem().toStdString());
        again.windows()[0]->window().close();
        EXPECT_TRUE(QTest::qWaitFor([&] { return again.windows().empty(); }));
    }
    EXPECT_TRUE(RecentProjects::open().empty());
    Desktop none({});
    none.start({});
    EXPECT_TRUE(none.startWindow());
    Desktop both({});
    both.start({shown->folder / "gone.mbproj", shown->package()});
    ASSERT_EQ(both.windows().size(), 1U);
    EXPECT_TRUE(both.windows()[0]->project().editor().toast()) << "says what could not be opened";
}
