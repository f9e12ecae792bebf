#include "app/editor/commands/FootageCommands.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;
using testing::ElementsAre;

namespace {

std::vector<int> ratings(Lines& lines) {
    std::vector<int> all;
    for (const auto& clip : lines.project().clips) all.push_back(static_cast<int>(clip.rating.value_or(0)));
    return all;
}

}

TEST(FootageCommands, actOnThePickedClipsElseOnTheHeldOne) {
    Lines lines;
    const auto& clips = lines.project().clips;
    EXPECT_EQ(lines(R"(["held"])"), fine);
    EXPECT_EQ(lines(R"(["clipsActedOn"])"), gave("[]"));
    lines(R"(["set","heldClip","C02"])");
    EXPECT_THAT(lines(R"(["held"])"), testing::HasSubstr(R"("number":2)"));
    EXPECT_EQ(FootageCommands::clipsActedOn(lines.editor()), std::vector{clips[1].id});
    lines(R"(["set","pickedClips",["C03","C01"]])");
    EXPECT_EQ(FootageCommands::clipsActedOn(lines.editor()), (std::vector{clips[2].id, clips[0].id}));
}

TEST(FootageCommands, ratingNamesItsStepAndOneIsTakenBackAtOnce) {
    Lines lines;
    EXPECT_EQ(lines(R"(["rate",["C01","C03"],1])"), stepped("Favourite"));
    EXPECT_THAT(ratings(lines), ElementsAre(1, 0, 1));
    EXPECT_EQ(lines(R"(["rate",["C02","C03"],-1])"), stepped("Reject"));
    EXPECT_THAT(ratings(lines), ElementsAre(1, -1, -1));
    EXPECT_EQ(lines(R"(["rate",["C01"],0])"), stepped("Clear Rating"));
    EXPECT_FALSE(lines.project().clips[0].rating) << "no rating, rather than one of 0";
    EXPECT_EQ(lines(R"(["rate",["C02"]])"), stepped("Clear Rating"));
    EXPECT_THAT(ratings(lines), ElementsAre(0, 0, -1));
    EXPECT_EQ(lines(R"(["rate",[],1])"), fine);
    lines(R"(["undo"])");
    EXPECT_THAT(ratings(lines), ElementsAre(0, -1, -1));
}

TEST(FootageCommands, aClipsNameIsKeptAsTypedAndABlankOneGone) {
    Lines lines;
    const auto clip = [&]() -> const Clip& { return lines.project().clips[1]; };
    EXPECT_EQ(lines(R"(["askToRename","C02"])"), gave(R"({"name":"C02","title":"Rename C02"})"));
    EXPECT_EQ(lines(R"(["renameClip","C02"," The Fall"])"), stepped("Rename Clip"));
    EXPECT_EQ(clip().name, " The Fall");
    EXPECT_FALSE(lines.project().clips[0].name);
    lines.editor().change(
        "x", [](Project& project) { project.clips.edit()[1].summary.emplace().title = "A Fall"; });
    EXPECT_EQ(
        lines(R"(["askToRename","C02"])"),
        gave(R"({"name":"The Fall · A Fall","text":"Described as “A Fall”, which stays beside your title.",)"
             R"("title":"Rename C02"})"));
    EXPECT_EQ(lines(R"(["renameClip","C02","  "])"), stepped("Rename Clip"));
    EXPECT_FALSE(clip().name);
}

TEST(FootageCommands, aLineIsCorrectedOnItsSourceAndNeverToNothing) {
    TwoCuts lines;
    EXPECT_EQ(lines(R"(["correct","C01.02","rec.mp4"," She said so "])"), stepped("Correct Line"));
    EXPECT_EQ(lines.line(1).text, "She said so");
    EXPECT_EQ(lines.line(0).text, "Line number 0");
    EXPECT_EQ(lines(R"(["correct","C01.02","rec.mp4"," \t"])"), fine);
    EXPECT_EQ(lines(R"(["correct","C01.02","cam.mp4","Elsewhere"])"), fine) << "it has no transcript";
    EXPECT_EQ(lines.line(1).text, "She said so");
    EXPECT_FALSE(lines.project().transcripts.contains(lines.cam()));
}

TEST(FootageCommands, pickedLinesAreMarkedFromTheFirstToTheLast) {
    Lines lines;
    lines(R"(["set","heldSource","rec.mp4"])");
    EXPECT_EQ(lines(R"(["pick",["C02.01","C01.02","C01.01"]])"), fine);
    EXPECT_EQ(lines.editor().range(), (Stretch{21, 44}));
    EXPECT_EQ(lines.editor().source.time(), 21);
    lines(R"(["pick",[]])");
    EXPECT_EQ(lines.editor().range(), (Stretch{21, 44}));
}

TEST(FootageCommands, aMarkKeepsTheOtherEndAndATenthOfASecond) {
    Lines lines;
    for (const auto* mark : {"markStart", "markEnd", "markClip"}) {
        EXPECT_FALSE(lines.possible(mark));
        EXPECT_EQ(lines("[\"" + std::string(mark) + "\"]"), fine);
        EXPECT_FALSE(lines.editor().range());
    }
    const auto after = [&](const std::string& mark, double at) {
        lines("[\"source.seek\"," + std::to_string(at) + "]");
        lines("[\"" + mark + "\"]");
        return *lines.editor().range();
    };
    lines(R"(["set","heldSource","rec.mp4"])");
    EXPECT_TRUE(lines.possible("markStart"));
    EXPECT_FALSE(lines.possible("markClip"));
    EXPECT_EQ(after("markStart", 25), (Stretch{25, 25.1}));
    EXPECT_EQ(after("markEnd", 40), (Stretch{25, 40}));
    EXPECT_EQ(after("markStart", 50), (Stretch{50, 50.1}));
    EXPECT_EQ(after("markEnd", 30), (Stretch{29.9, 30}));
    lines(R"(["set","range",null])", R"(["set","heldClip","C02"])");
    EXPECT_EQ(after("markStart", 42), (Stretch{42, 50}));
    lines(R"(["set","range",null])");
    EXPECT_EQ(after("markEnd", 45), (Stretch{40, 45}));
    EXPECT_EQ(after("markClip", 45), (Stretch{40, 50}));
}

TEST(FootageCommands, lettingGoTakesMarksPicksAndTool) {
    TwoCuts lines;
    for (const auto* line : {R"(["set","range",[1,2]])", R"(["set","picked",["cut","cut 1"]])",
                             R"(["set","morePicked",[["cut","cut 2"]]])", R"(["set","tool","blade"])",
                             R"(["set","pickedClips",["C01"]])"})
        lines(line);
    EXPECT_EQ(lines(R"(["clear"])"), fine);
    auto& editor = lines.editor();
    EXPECT_FALSE(editor.range() || editor.picked() || !editor.morePicked().empty());
    EXPECT_EQ(editor.tool(), EditingTool::select);
    EXPECT_EQ(editor.pickedClips().size(), 1u);
}

TEST(FootageCommands, anIdIsCopiedAndSaid) {
    Lines lines;
    QString copied;
    QObject::connect(&lines.editor(), &Editor::copied, [&](const QString& text) { copied = text; });
    EXPECT_EQ(lines(R"(["copyID","C01.02"])"), did("Copied C01.02"));
    EXPECT_EQ(copied, "C01.02");
}
