#include "platform/base/HomeFolder.h"
#include "tests/Environment.h"

#include <gtest/gtest.h>

namespace murbo {

TEST(HomeFolder, isWhatTheEnvironmentSaysWhereItSaysAPlace) {
    const Environment home("HOME", "/home/somebody");
    EXPECT_EQ(homeFolder(), "/home/somebody");
    for (const char* none : {"", "here"}) {
        const Environment unset("HOME", none);
        EXPECT_TRUE(homeFolder().is_absolute()) << "from the system's list of users";
    }
}

}
