#include "core/model/package/PackageLock.h"
#include "tests/app/CommandTest.h"

using namespace murbo;
using testing::HasSubstr;
namespace fs = std::filesystem;

using Commands = CommandTest;

TEST_F(Commands, aProjectThatIsOpenElsewhereIsReadAndNotChanged) {
    const auto lock = PackageLock::lock(project);
    const auto open = failure("“p.mbproj” is open in Murbo. Close it there first.");
    EXPECT_EQ(murboWith({"--add-files", project, movie}), open);
    EXPECT_EQ(murboWith({"--add-stream", project, movie}), open);
    EXPECT_EQ(murboWith({"--transcribe", project, "all"}), open);
    EXPECT_EQ(murboWith({"--summary", project}).code, 0);
}
