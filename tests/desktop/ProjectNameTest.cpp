#include "app/desktop/documents/ProjectName.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(ProjectName, isWhatAFolderCanBeCalled) {
    for (const auto* name : {"Tuesday", "ตอนที่ 2", "a.b", "x.mbproj"})
        EXPECT_EQ(ProjectName::fault(name), "") << name;
    for (const auto* name : {"", "  ", "a/b", "..", ".x"}) EXPECT_NE(ProjectName::fault(name), "") << name;
    EXPECT_NE(ProjectName::fault(std::string(250, 'a')), "");
    EXPECT_EQ(ProjectName::package("a.b", "/x"), "/x/a.b.mbproj");
    EXPECT_EQ(ProjectName::package("a.mbproj", "/x"), "/x/a.mbproj");
}

TEST(ProjectName, onePackageHasOnePath) {
    for (const auto* path : {"/x/a.mbproj", "/x/a.mbproj/", "/x/./b/../a.mbproj"})
        EXPECT_EQ(ProjectName::tidy(path), "/x/a.mbproj");
}
