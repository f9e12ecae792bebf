#include "core/model/package/ProjectError.h"

#include <tuple>

#include <gtest/gtest.h>

using namespace murbo;

TEST(ProjectError, saysItInTheOwnersWords) {
    using Kind = ProjectError::Kind;
    const std::tuple<Kind, const char*, const char*> cases[] = {
        {Kind::damaged, "/x/Name.mbproj",
         "“Name.mbproj” could not be opened. It is damaged or is not an Murbo project."},
        {Kind::newer, "/x/Name.mbproj/",
         "“Name.mbproj” was made by a newer version of Murbo. Update Murbo to open it."},
        {Kind::exists, "Name.mbproj", "“Name.mbproj” is already there."}};
    for (const auto& [kind, path, words] : cases) EXPECT_EQ(ProjectError(kind, path).message(), words);
}
