#include "app/desktop/RecentProjects.h"
#include "tests/desktop/OnWindow.h"

#include <fmt/format.h>
using namespace murbo;

using RecentProjectsTest = OnWindow<WindowOfProject>;

TEST(RecentProjects, theNewestComesFirstAndNoneTwice) {
    const TemporaryFolder folder;
    const Environment config("XDG_CONFIG_HOME", folder.path / "config");
    for (int number = 0; number < 20; ++number)
        RecentProjects::add(folder / fmt::format("p{}.mbproj", number));
    RecentProjects::add(folder / "p15.mbproj");
    const auto all = RecentProjects::all();
    EXPECT_EQ(all.size(), RecentProjects::maxProjects);
    EXPECT_EQ(all[0].filename(), "p15.mbproj");
    EXPECT_EQ(all[1].filename(), "p19.mbproj");
    EXPECT_EQ(std::ranges::count(all, folder / "p15.mbproj"), 1);
    EXPECT_TRUE(RecentProjects::shown()[0].toMap()["missing"].toBool());
    folder.file("p15.mbproj/project.json");
    const auto shown = RecentProjects::shown()[0].toMap();
    EXPECT_FALSE(shown["missing"].toBool());
    EXPECT_EQ(shown["path"], QString::fromStdString(folder / "p15.mbproj"));
    EXPECT_EQ(shown["name"], "p15");
    EXPECT_EQ(shown["folder"], QString::fromStdString(folder.path));
    EXPECT_EQ(shown["date"], QLocale().toString(QDate::currentDate(), QLocale::ShortFormat));
    EXPECT_TRUE(shown["picture"].toString().startsWith("image://project/"));
}

TEST_F(RecentProjectsTest, oneIsTakenOffInTheStartWindow) {
    RecentProjects::add(shown->folder / "gone.mbproj");
    RecentProjects::add(shown->folder / "away.mbproj");
    shown->desktop->showStart();
    shown->settle();
    auto* window = shown->desktop->startWindow();
    auto* off = WindowOfProject::named(window->contentItem(), "Take away off the list");
    ASSERT_TRUE(off);
    QTest::mouseClick(window, Qt::LeftButton, {}, off->mapToScene({12, 12}).toPoint());
    shown->settle();
    EXPECT_EQ(RecentProjects::all()[0], shown->folder / "gone.mbproj");
    EXPECT_EQ(std::ranges::count(RecentProjects::all(), shown->folder / "away.mbproj"), 0);
    auto* list = WindowOfProject::named(window->contentItem(), "Recent");
    ASSERT_TRUE(list);
    for (auto* item : list->parentItem()->childItems())
        if (item->property("count").isValid()) item->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(window, Qt::Key_Delete);
    EXPECT_EQ(RecentProjects::all()[0], shown->package());
}
