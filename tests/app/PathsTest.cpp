#include "app/options/Paths.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace murbo;
namespace fs = std::filesystem;

TEST(Paths, areWholeAndWithoutDetours) {
    EXPECT_EQ(Paths::absolute("a/b"), fs::current_path() / "a/b");
    EXPECT_EQ(Paths::absolute("./a/./b"), fs::current_path() / "a/b");
    EXPECT_EQ(Paths::absolute("/a//b/"), "/a/b") << "a folder needs no stroke at its end";
    EXPECT_EQ(Paths::absolute("/"), "/");
    EXPECT_EQ(Paths::absolute("/a/x/../b"), "/a/b");
    EXPECT_EQ(Paths::absolute("/a/..."), "/a/...");
}

TEST(Paths, goBackFromWhereALinkLeads) {
    const TemporaryFolder folder;
    folder.file("far/inner/file");
    folder.file("file");
    fs::create_symlink(folder / "far/inner", folder / "link");
    const auto far = fs::canonical(folder / "far");
    EXPECT_EQ(Paths::absolute((folder / "link/../new").string()), far / "new");
    EXPECT_EQ(Paths::absolute((folder / "far/../file").string()), folder / "file") << "no link, no other way";
    EXPECT_EQ(Paths::absolute((folder / "link/file").string()), folder / "link/file")
        << "a link is kept as typed";
}
