#include "core/model/package/PackageLock.h"
#include "core/model/package/ProjectPackage.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <csignal>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace murbo;

namespace {

class PackageLockTest : public testing::Test {
protected:
    PackageLockTest() { ProjectPackage::create(package); }

    TemporaryFolder folder;
    const std::filesystem::path package = folder / "ไทย.mbproj";
};

}

TEST_F(PackageLockTest, letsOneWriterIn) {
    auto first = PackageLock::tryLock(package);
    ASSERT_TRUE(first);
    EXPECT_FALSE(PackageLock::tryLock(package));
    EXPECT_EQ(problemOf([&] { PackageLock::lock(package / ""); }),
              "“ไทย.mbproj” is open in Murbo. Close it there first.");
    EXPECT_EQ(ProjectPackage::read(package), Project()) << "readers are not kept out";
    const auto moved = std::move(first);
    EXPECT_FALSE(PackageLock::tryLock(package)) << "a lock that moves stays held";
}

TEST_F(PackageLockTest, goesAlongWithARenamedPackageAndEndsWithItsHolder) {
    const auto renamed = folder / "other.mbproj";
    {
        const auto lock = PackageLock::lock(package);
        std::filesystem::rename(package, renamed);
        std::filesystem::create_directory_symlink(renamed, package);
        EXPECT_FALSE(PackageLock::tryLock(package));
    }
    EXPECT_TRUE(PackageLock::tryLock(renamed));
}

TEST_F(PackageLockTest, leavesWhatIsNotThereToItsReader) {
    EXPECT_NO_THROW(PackageLock::lock(folder / "nothing.mbproj"));
}
