#include "platform/base/SiblingFile.h"
#include "tests/ProblemOf.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace murbo;
namespace fs = std::filesystem;

TEST(SiblingFile, twoWritersHaveNamesOfTheirOwnAndAFreeOneIsUsedAgain) {
    const TemporaryFolder folder;
    const auto first = SiblingFile::claim(folder / "a.txt", "new");
    EXPECT_EQ(first.path, folder / ".a.txt.0.new");
    {
        const auto second = SiblingFile::claim(folder / "a.txt", "new");
        EXPECT_EQ(second.path, folder / ".a.txt.1.new");
        ASSERT_EQ(::write(second.file, "left", 4), 4);
    }
    const auto third = SiblingFile::claim(folder / "a.txt", "new");
    EXPECT_EQ(third.path, folder / ".a.txt.1.new");
    EXPECT_EQ(contentsOf(third.path), "left") << "what a killed process left stays till it is overwritten";
    EXPECT_EQ(SiblingFile::claim(folder / "a.txt", "part").path, folder / ".a.txt.0.part");
}

TEST(SiblingFile, aNameThatSomethingElseHasIsPassedOver) {
    const TemporaryFolder folder;
    fs::create_symlink(folder.file("precious", "kept"), folder / ".a.0.new");
    fs::create_directory(folder / ".a.1.new");
    fs::create_symlink(folder / "nowhere", folder / ".a.2.new");
    ASSERT_EQ(::mkfifo((folder / ".a.3.new").c_str(), 0600), 0);
    const auto claimed = SiblingFile::claim(folder / "a", "new");
    EXPECT_EQ(claimed.path, folder / ".a.4.new");
    EXPECT_TRUE(fs::is_regular_file(claimed.path));
    EXPECT_EQ(contentsOf(folder / "precious"), "kept");
    EXPECT_FALSE(fs::exists(folder / "nowhere"));
}

TEST(SiblingFile, aLongNameIsShortenedAndAFailureNamesThePlace) {
    const TemporaryFolder folder;
    const std::string longest(255, 'x');
    EXPECT_EQ(SiblingFile::claim(folder / longest, "new").path.filename(),
              "." + longest.substr(0, 200) + ".0.new");
    EXPECT_EQ(problemOf([&] { SiblingFile::claim(folder / "gone/a.txt", "new"); }),
              "“a.txt” could not be written: it does not exist.");
    EXPECT_EQ(problemOf([&] { SiblingFile::claim(folder.file("file") / "a.txt", "new"); }),
              "“a.txt” could not be written: a file stands where a folder is needed.");
}

TEST(SiblingFile, linksAreFollowedToTheirEnd) {
    const TemporaryFolder folder;
    fs::create_directory(folder / "far");
    fs::create_symlink("far/near", folder / "one");
    fs::create_symlink(folder / "one", folder / "two");
    fs::create_symlink("../three", folder / "far/near");
    EXPECT_EQ(fs::weakly_canonical(SiblingFile::followed(folder / "two")),
              fs::weakly_canonical(folder / "three"));
    EXPECT_EQ(SiblingFile::followed(folder / "none"), folder / "none");
    fs::create_symlink("round", folder / "round");
    EXPECT_EQ(problemOf([&] { SiblingFile::followed(folder / "round"); }),
              "“round” could not be written: Too many levels of symbolic links.");
    auto last = folder.file("0");
    for (int number = 1; number <= 41; ++number) {
        fs::create_symlink(last, folder / std::to_string(number));
        last = folder / std::to_string(number);
    }
    EXPECT_EQ(SiblingFile::followed(folder / "40"), folder / "0") << "as many as the system follows";
    EXPECT_NE(problemOf([&] { SiblingFile::followed(folder / "41"); }), "");
}
