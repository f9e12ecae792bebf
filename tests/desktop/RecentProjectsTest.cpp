#include "app/desktop/RecentProjects.h"
#include "tests/Environment.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(RecentProjects, theNewestComesFirstAndNoneTwice) {
    const TemporaryFolder folder;
    const Environment config("XDG_CONFIG_HOME", folder.path / "config");
    for (int number = 0; number < 20; ++number)
        RecentProjects::add(folder / ("p" + std::to_string(number) + ".mbproj"));
    RecentProjects::add(folder / "p15.mbproj");
    const auto all = RecentProjects::all();
    EXPECT_EQ(all.size(), RecentProjects::maxProjects);
    EXPECT_EQ(all[0].filename(), "p15.mbproj");
    EXPECT_EQ(all[1].filename(), "p19.mbproj");
    EXPECT_EQ(std::ranges::count(all, folder / "p15.mbproj"), 1);
    EXPECT_TRUE(RecentProjects::shown()[0].toMap()["missing"].toBool());
    folder.file("p15.mbproj/project.json");
    EXPECT_FALSE(RecentProjects::shown()[0].toMap()["missing"].toBool());
}
