#include "app/desktop/viewer/ViewerAids.h"
#include "tests/Environment.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(ViewerAids, areAsTheyWereLeft) {
    const TemporaryFolder folder;
    const Environment config("XDG_CONFIG_HOME", folder.path);
    Playback player;
    ViewerAids(player).setSafeAreas(true);
    EXPECT_TRUE(ViewerAids(player).safeAreas());
    EXPECT_FALSE(ViewerAids(player).droppedFrames());
    EXPECT_EQ(ViewerAids(player).droppedWords(), "0 of 0 dropped");
}
