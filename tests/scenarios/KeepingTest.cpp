// What is on disk, whatever happens to the program and to the disk.
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

#include <sys/resource.h>

using namespace murbo;

namespace {

class Keeping : public Scenario {
protected:
    void setLargestFile(rlim_t bytes) {
        const rlimit limit{bytes, RLIM_INFINITY};
        ASSERT_EQ(prlimit(program().process().id(), RLIMIT_FSIZE, &limit, nullptr), 0);
    }
};

}

TEST_F(Keeping, aProgramKilledInADragLeavesTheProjectWhole) {
    open(scenario::cutVideo());
    const auto first = block("Cut", 1);
    moveSeen({first.x + first.width - 3, first.y + 30});
    screen().press();
    moveSeen({first.x + first.width - 60, first.y + 30});
    until("it is dragged", [&] { return block("Cut", 1).width < first.width - 30; });
    program().process().kill();
    screen().release();
    EXPECT_EQ(onDisk(), before);
    start({"--open", package.string()});
    see("List", "Timeline of V1, 3 cuts");
    EXPECT_EQ(onDisk(), before);
}

TEST_F(Keeping, aFullDiskIsSaidAndTheOldFilesStayWhole) {
    open(scenario::cutVideo());
    block("Cut", 3);
    key("Home Right*15");
    setLargestFile(600);
    key("Ctrl+B");
    see("AlertMessage", "Not saved: ");
    EXPECT_EQ(onDisk(), before);
    until("the cut is on the timeline all the same", [&] { return blocks("Cut").size() == 4; });
    setLargestFile(RLIM_INFINITY);
    until("it is saved once there is room", [&] { return video().cuts.size() == 4; });
    undoToStart();
}

TEST_F(Keeping, aFolderThatIsGoneIsSaidAndComesNotBackInPieces) {
    open(scenario::cutVideo());
    block("Cut", 3);
    key("Home Right*15");
    const auto elsewhere = folder / "elsewhere.mbproj";
    std::filesystem::rename(package, elsewhere);
    key("Ctrl+B");
    see("AlertMessage", "Not saved: “p.mbproj” is not in its place any more.");
    until("the cut is on the timeline all the same", [&] { return blocks("Cut").size() == 4; });
    EXPECT_FALSE(std::filesystem::exists(package));
    std::filesystem::rename(elsewhere, package);
    until("it is saved once it is back", [&] { return video().cuts.size() == 4; });
    undoToStart();
}
