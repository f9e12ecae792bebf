#include "app/desktop/libraries/LibraryRows.h"
#include "platform/base/Files.h"
#include "tests/desktop/WindowOfLibrary.h"

using namespace murbo;

using LibraryRowsTest = OnWindow<WindowOfLibrary>;

TEST_F(LibraryRowsTest, whatIsNoPlaybookIsNamedWithTheReason) {
    std::filesystem::create_directories(Library::playbooks() / "Broken.mbplay");
    Files::writeWhole(Library::playbooks() / "Broken.mbplay/playbook.json", R"({"name": 3})");
    LibraryModel model(shown->editor(), shown->opened->arriving(), {});
    ASSERT_TRUE(shown->turn(model, Collection::playbooks));
    const int broken = WindowOfLibrary::row(model, "Broken.mbplay");
    ASSERT_GE(broken, 0);
    const auto& row = model.rows()[static_cast<std::size_t>(broken)];
    EXPECT_EQ(row.group, "Left out");
    EXPECT_NE(row.about, "");
    EXPECT_FALSE(model.add(broken));
    model.setWords("left");
    EXPECT_EQ(model.rowCount(), 1);
    model.setWords("no such thing");
    EXPECT_EQ(model.emptyWords(), "Nothing here is called that");
    EXPECT_FALSE(LibraryRows::isLibrary(Collection::clips));
}
