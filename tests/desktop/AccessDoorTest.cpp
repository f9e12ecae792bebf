#include "app/desktop/access/AccessDoor.h"
#include "tests/Environment.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace murbo;

/// What it gives of the windows is what every scenario reads.
TEST(AccessDoor, isThereOnlyWhereItIsAskedFor) {
    EXPECT_FALSE(AccessDoor().open());
    const TemporaryFolder folder;
    const Environment asked(AccessDoor::variable, folder / "door");
    EXPECT_TRUE(AccessDoor().open());
}
