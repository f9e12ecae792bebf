#include "app/editor/commands/CaptionCommands.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

namespace {

using Pieces = std::vector<CaptionLine::Piece>;

const List<CaptionLine>& entries(TwoCuts& lines) {
    return lines.look().captions.lines;
}

}

TEST(CaptionCommands, aLineHasOneEntryThatStaysItsOwn) {
    TwoCuts lines;
    EXPECT_EQ(lines(R"(["changeCaption","C01.01","Make Big",{"big":true}])"), stepped("Make Big"));
    lines(R"(["changeCaption","C01.02","Hide",{"hidden":true}])");
    lines(R"(["changeCaption","C01.01","Stress",{"stress":[1],"line":")" + lines.line(1).id.text() +
          R"("}])");
    ASSERT_EQ(entries(lines).size(), 2u);
    EXPECT_EQ(entries(lines)[0], (CaptionLine{.line = lines.line(0).id, .big = true, .stress = {{1}}}));
    EXPECT_EQ(entries(lines)[1], (CaptionLine{.line = lines.line(1).id, .hidden = true}));
    EXPECT_EQ(lines.steps(), (TwoCuts::Names{"Make Big", "Hide", "Stress"}));
}

TEST(CaptionCommands, retimingIsADragAndResettingAStep) {
    TwoCuts lines;
    EXPECT_EQ(lines(R"(["retimeCaption","C01.01",20.5,23])"), fine);
    EXPECT_EQ(lines.editor().unfinished(), "Drag");
    EXPECT_EQ(entries(lines)[0].start, 20.5);
    EXPECT_EQ(entries(lines)[0].end, 23);
    lines(R"(["retimePieces","C01.01",["Line","number","0"],[0.2,0.6]])");
    EXPECT_EQ(lines(R"(["resetCaptionTiming","C01.01"])"), stepped("Reset Caption Timing"));
    EXPECT_EQ(entries(lines)[0],
              (CaptionLine{.line = lines.line(0).id,
                           .pieces = Pieces{{.text = "Line"}, {.text = "number"}, {.text = "0"}}}));
    EXPECT_EQ(lines.steps(), (TwoCuts::Names{"Drag", "Reset Caption Timing"}));
}

TEST(CaptionCommands, piecesMeetInOrderAndWithinTheLine) {
    TwoCuts lines;
    for (const auto* meets : {"[]", "[0.2,0.4,0.6]", "[0.6,0.4]", "[0.02,0.5]", "[0.5,0.98]", "[-0.1,0.5]"}) {
        lines(std::string(R"(["retimePieces","C01.01",["a","b","c"],)") + meets + "]");
        EXPECT_TRUE(entries(lines).empty()) << meets;
    }
    EXPECT_FALSE(lines.editor().unfinished());
    lines(R"(["retimePieces","C01.01",["a","b","c"],[0.03,0.97]])");
    EXPECT_EQ(entries(lines)[0].pieces,
              (Pieces{{.text = "a", .until = 0.03}, {.text = "b", .until = 0.97}, {.text = "c"}}));
}

TEST(CaptionCommands, retimedPiecesKeepTheirLookWhileTheirNumberStays) {
    TwoCuts lines;
    lines(R"(["changeCaption","C01.01","x",{"pieces":[{"text":"A","big":true},{"text":"B","until":0.9}]}])");
    lines(R"(["retimePieces","C01.01",["a","b"],[0.4]])");
    EXPECT_EQ(entries(lines)[0].pieces, (Pieces{{.text = "A", .until = 0.4, .big = true}, {.text = "B"}}));
    lines(R"(["retimePieces","C01.01",["a","b","c"],[0.4,0.5]])");
    EXPECT_EQ(entries(lines)[0].pieces,
              (Pieces{{.text = "a", .until = 0.4}, {.text = "b", .until = 0.5}, {.text = "c"}}));
}

TEST(CaptionCommands, whatIsBrokenIsTrimmedAndOneLeftIsJoined) {
    TwoCuts lines;
    EXPECT_EQ(lines(R"(["breakCaption","C01.01",[" Line ","","  ","number 0"]])"), stepped("Break Caption"));
    EXPECT_EQ(entries(lines)[0].pieces, (Pieces{{.text = "Line"}, {.text = "number 0"}}));
    EXPECT_EQ(lines(R"(["breakCaption","C01.01",["Line number 0"," "]])"), stepped("Join Caption"));
    EXPECT_FALSE(entries(lines)[0].pieces);
    EXPECT_EQ(lines(R"(["breakCaption","C09.01",["a"]])"),
              refused("“line” is not right: “C09.01” is not a line of this project."));
}
