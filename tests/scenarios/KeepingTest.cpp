// What is on disk, whatever happens to the program and to the disk.
#include "tests/scenarios/Scenario.h"
#include "tests/scenarios/ScenarioMedia.h"

#include <cmath>

#include <sys/resource.h>

using namespace murbo;

namespace {

class Keeping : public Scenario {
protected:
    void setLargestFile(rlim_t bytes) {
        const rlimit limit{bytes, RLIM_INFINITY};
        ASSERT_EQ(prlimit(program().process().id(), RLIMIT_FSIZE, &limit, nullptr), 0);
    }
    void addShownFiles() {
        see("Dialog", "Add Footage");
        clickOn("Button", "Choose Files");
        click(see("EditableText", "Folder", "Add Footage"));
        key("Ctrl+A");
        type(made::folder().string());
        key("Return");
        for (const auto* name : {"bars.mp4", "plain.mp4", "talk.mp4"})
            clickOn("ListItem", name, "Add Footage");
        see("Button", "Add 3 Files");
        if (see("CheckBox", "Transcribe").checked) clickOn("CheckBox", "Transcribe");
        key("Ctrl+Return");
    }
};

}

TEST_F(Keeping, aProjectIsThereAgainAfterTheProgramIsKilled) {
    scenario::footage(); // makes the files
    start({});
    clickOn("Button", "New Project");
    see("EditableText", "Name of the project");
    type("Falls");
    click(see("EditableText", "Folder"));
    key("Ctrl+A");
    type(folder.path.string());
    clickOn("Button", "Create");
    see("List", "Timeline");
    package = folder / "Falls.mbproj";
    key("Ctrl+I");
    addShownFiles();
    until("three clips are on disk", [&] { return onDisk().clips.size() == 3; });
    clickOn("ListItem", "Clips");
    clickOn("ListItem", "C02,", "Browser");
    key("E");
    until("a video is made of one", [&] { return video().cuts.size() == 1; });
    until("the history is written", [&] { return std::filesystem::exists(package / "undo.json"); });
    const auto left = onDisk();

    program().process().kill();
    start({});
    see("List", "Timeline of V1, 1 cut");
    EXPECT_EQ(onDisk(), left);
    const auto stood = left.videos[0].cuts.size();
    key("Ctrl+Z");
    until("what was done before the end can be undone",
          [&] { return onDisk().videos.empty() || onDisk().videos[0].cuts.size() < stood; });
}

TEST_F(Keeping, aProgramKilledInADragLeavesTheProjectWhole) {
    open(scenario::cutVideo());
    const auto first = block("Cut", 1);
    screen().move({first.x + first.width - 3, first.y + 30});
    screen().press();
    screen().move({first.x + first.width - 60, first.y + 30});
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
    key("Home");
    key("Right", 15);
    setLargestFile(600);
    key("Ctrl+B");
    sees("Not saved: ");
    EXPECT_EQ(onDisk(), before);
    until("the cut is on the timeline all the same", [&] { return blocks("Cut").size() == 4; });
    setLargestFile(RLIM_INFINITY);
    until(
        "it is saved once there is room", [&] { return video().cuts.size() == 4; }, 15);
    undoToStart();
}

TEST_F(Keeping, aFolderThatIsGoneIsSaidAndNothingIsLost) {
    open(scenario::cutVideo());
    block("Cut", 3);
    key("Home");
    key("Right", 15);
    const auto elsewhere = folder / "elsewhere.mbproj";
    std::filesystem::rename(package, elsewhere);
    key("Ctrl+B");
    sees("Not saved: ");
    std::filesystem::rename(elsewhere, package);
    until(
        "it is saved once it is back", [&] { return video().cuts.size() == 4; }, 15);
    undoToStart();
}
