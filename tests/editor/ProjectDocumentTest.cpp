#include "app/editor/ProjectDocument.h"
#include "tests/FullDisk.h"
#include "tests/ProblemOf.h"
#include "tests/editor/Lines.h"

using namespace murbo;
using testing::HasSubstr;

namespace fs = std::filesystem;

TEST(ProjectDocument, aSecondSessionIsRefused) {
    Lines lines;
    EXPECT_EQ(problemOf([&] { ProjectDocument::open(lines.package()); }),
              "“p.mbproj” is open in Murbo. Close it there first.");
}

TEST(ProjectDocument, aSaveThatFailsIsToldAndMadeUpFor) {
    Lines lines;
    {
        const FullDisk disk(100);
        EXPECT_THAT(lines(R"(["renameClip","C01","Best"])"), HasSubstr("\"toast\":\"Not saved: "));
        EXPECT_THAT(lines(R"(["renameClip","C01","Better"])"), HasSubstr("\"step\":\"Rename Clip\""));
        EXPECT_TRUE(lines.document->unsaved());
    }
    lines(R"(["wait",3.5])");
    EXPECT_FALSE(lines.document->unsaved());
    EXPECT_EQ(ProjectPackage::read(lines.package()).clips[0].name, "Better");
    EXPECT_EQ(ProjectPackage::readHistory(lines.package()).past().size(), 2u) << "written while it is open";
}

TEST(ProjectDocument, aDragOverAFullDiskIsAStepThatTheNextSaveBrings) {
    Lines lines;
    lines(R"(["set","heldClip","C01"])", R"(["addToEnd"])");
    {
        const FullDisk disk(100);
        lines(R"(["trim","cut 1",true,22])", R"(["trim","cut 1",true,23])");
        EXPECT_THAT(lines(R"(["endTrim","cut 1",true,"Trim"])"),
                    testing::AllOf(HasSubstr("Not saved: "), HasSubstr("\"step\":\"Trim\"")));
    }
    lines(R"(["trim","cut 1",true,24])", R"(["closeDrag"])");
    EXPECT_FALSE(lines.document->unsaved());
    EXPECT_EQ(lines.project().videos[0].cuts[0].start, 24);
    EXPECT_EQ(ProjectPackage::read(lines.package()), lines.project());
}

TEST(ProjectDocument, aPackageThatIsGoneIsNotMadeAgain) {
    Lines lines;
    fs::rename(lines.package(), lines.folder / "away");
    EXPECT_THAT(lines(R"(["renameClip","C01","Best"])"), HasSubstr("is not in its place any more"));
    EXPECT_FALSE(fs::exists(lines.package()));
    fs::rename(lines.folder / "away", lines.package());
    lines(R"(["renameClip","C02","Too"])");
    EXPECT_EQ(ProjectPackage::read(lines.package()), lines.project());
}

TEST(ProjectDocument, whatAnotherProgramWroteIsKeptBeside) {
    Lines lines;
    ProjectPackage::write(lines.project(), lines.package(), nullptr);
    EXPECT_EQ(lines(R"(["renameClip","C01","Same"])"), stepped("Rename Clip")) << "no change";
    EXPECT_FALSE(fs::exists(lines.folder / "p (changed elsewhere).mbproj"));
    auto theirs = lines.project();
    theirs.language = "en";
    ProjectPackage::write(theirs, lines.package(), nullptr);
    EXPECT_THAT(lines(R"(["renameClip","C01","Ours"])"), HasSubstr("p (changed elsewhere).mbproj"));
    EXPECT_EQ(ProjectPackage::read(lines.folder / "p (changed elsewhere).mbproj"), theirs);
    EXPECT_EQ(ProjectPackage::read(lines.package()), lines.project());
    EXPECT_EQ(lines(R"(["renameClip","C01","More"])"), stepped("Rename Clip"));
    theirs.language = "th";
    ProjectPackage::write(theirs, lines.package(), nullptr);
    for (const auto* file : {"cache/strip.jpg", "media/sounds/boom.wav"})
        lines.folder.file(std::filesystem::path("p.mbproj") / file, "bytes");
    EXPECT_THAT(lines(R"(["renameClip","C01","Ours"])"),
                HasSubstr("“p.mbproj” was changed by another program. Its version is kept as “p (changed "
                          "elsewhere 2).mbproj”."));
    const auto second = lines.folder / "p (changed elsewhere 2).mbproj";
    EXPECT_EQ(ProjectPackage::read(second), theirs);
    EXPECT_EQ(contentsOf(second / "media/sounds/boom.wav"), "bytes");
    EXPECT_FALSE(fs::exists(second / "cache")) << "what is made anew";
}

TEST(ProjectDocument, transcriptsAreWatchedAndAnUndoIsWrittenToo) {
    Lines lines;
    auto theirs = lines.project();
    theirs.transcripts.begin()->second.lines.edit()[0].text = "theirs";
    ProjectPackage::write(theirs, lines.package(), &lines.project()); // the transcript alone
    EXPECT_THAT(lines(R"(["renameClip","C01","Ours"])"), HasSubstr("p (changed elsewhere).mbproj"));
    EXPECT_EQ(ProjectPackage::read(lines.folder / "p (changed elsewhere).mbproj"), theirs);
    for (const auto* line : {R"(["correct","C01.01","rec.mp4","Other"])", R"(["undo"])", R"(["redo"])"}) {
        lines(line);
        EXPECT_EQ(ProjectPackage::read(lines.package()), lines.project()) << line;
    }
}

TEST(ProjectDocument, theHistoryOutlivesTheSession) {
    Lines lines;
    lines(R"(["renameClip","C01","Best"])");
    lines.close();
    lines.open();
    EXPECT_EQ(lines(R"(["undo"])"), did("Undid Rename Clip"));
    EXPECT_FALSE(lines.project().clips[0].name);
}
