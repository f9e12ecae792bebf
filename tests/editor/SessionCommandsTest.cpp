#include "app/editor/commands/SessionCommands.h"
#include "app/editor/commands/TimelinePicks.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(SessionCommands, undoAndRedoArePossibleWhereThereIsAStepOrADrag) {
    TwoCuts lines;
    EXPECT_FALSE(lines.possible("undo") || lines.possible("redo"));
    lines(R"(["beginDrag"])");
    EXPECT_TRUE(lines.possible("undo")) << "an open drag is taken back";
    lines(R"(["closeDrag"])", R"(["rename","V1","Two"])");
    EXPECT_TRUE(lines.possible("undo") && !lines.possible("redo"));
    EXPECT_EQ(lines(R"(["writeHistory"])"), fine);
    EXPECT_EQ(ProjectPackage::readHistory(lines.package()).undoName(), "Rename Video");
    EXPECT_EQ(lines(R"(["undo"])"), did("Undid Rename Video"));
    EXPECT_EQ(lines.video().title, "One");
    EXPECT_TRUE(!lines.possible("undo") && lines.possible("redo"));
    EXPECT_EQ(lines(R"(["redo"])"), did("Redid Rename Video"));
    EXPECT_EQ(lines.video().title, "Two");
    EXPECT_EQ(lines(R"(["redo"])"), fine);
}

TEST(SessionCommands, aDragHasItsFirstNameAndClosesUnderIt) {
    TwoCuts lines;
    EXPECT_EQ(lines(R"(["unfinished"])"), fine);
    lines(R"(["beginDrag","Slide"])", R"(["beginDrag","Another"])");
    EXPECT_EQ(lines(R"(["unfinished"])"), gave("\"Slide\""));
    lines(R"(["dragLook",{"mix":{"music":0.5}}])");
    EXPECT_EQ(lines(R"(["closeDrag"])"), stepped("Slide"));
    EXPECT_EQ(lines(R"(["unfinished"])"), fine);
    lines(R"(["dragLook",{"mix":{"music":0.6}}])");
    EXPECT_EQ(lines(R"(["unfinished"])"), gave("\"Drag\""));
}

TEST(SessionCommands, heldKeysAreThoseOfTheLastLine) {
    Lines lines;
    const auto held = [&](const std::string& keys) {
        EXPECT_EQ(lines("[\"modifiers\"" + keys + "]"), fine);
        const auto& now = TimelinePicks::held();
        return std::vector<bool>{now.shift, now.command, now.option};
    };
    using Keys = std::vector<bool>;
    EXPECT_EQ(held(R"(,"shift")"), (Keys{true, false, false}));
    EXPECT_EQ(held(R"(,"option","command")"), (Keys{false, true, true}));
    EXPECT_EQ(held(R"(,"command","option","shift")"), (Keys{true, true, true}));
    EXPECT_EQ(held(R"(,null,null,"option")"), (Keys{false, false, true}));
    EXPECT_EQ(held(""), (Keys{false, false, false}));
}

TEST(SessionCommands, aWaitIsBounded) {
    Lines lines;
    EXPECT_EQ(lines(R"(["wait",0])"), fine);
    EXPECT_EQ(lines(R"(["wait",0.01])"), fine);
    for (const auto* seconds : {"-0.1", "3600.1"})
        EXPECT_EQ(lines("[\"wait\"," + std::string(seconds) + "]"),
                  refused("A wait lasts from 0 to 3600 seconds."));
}
