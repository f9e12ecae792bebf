#include "app/editor/commands/CutCommands.h"
#include "core/model/edits/VideoEdits.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(CutCommands, whatIsPutTwiceIsTwoCuts) {
    Lines lines;
    auto& editor = lines.editor();
    const Cut cut{.source = editor.project().sources[0].id, .start = 1, .end = 3};
    CutCommands::drop(editor, {cut}, std::nullopt);
    CutCommands::drop(editor, {cut, cut}, 0);
    std::set<UUID> ids;
    for (const auto& each : editor.video()->cuts) ids.insert(each.id);
    EXPECT_EQ(ids.size(), 3u);
}

namespace {

/// The stretches that the open video's cuts play.
std::vector<std::pair<double, double>> played(Lines& lines) {
    std::vector<std::pair<double, double>> all;
    for (const auto& cut : lines.editor().video()->cuts) all.emplace_back(cut.start, cut.end);
    return all;
}
using Played = std::vector<std::pair<double, double>>;

std::size_t pickedPlace(TwoCuts& lines) {
    return *VideoEdits::index(lines.video(), lines.editor().picked().value_or(Pick{}).id);
}

}

TEST(CutCommands, theOfferIsTheRangeElseTheClipElseTheSource) {
    Lines lines;
    auto& editor = lines.editor();
    const auto offer = [&] {
        const auto cut = CutCommands::offered(editor);
        return cut ? std::pair(cut->start, cut->end) : std::pair(-1.0, -1.0);
    };
    EXPECT_EQ(offer(), std::pair(-1.0, -1.0));
    for (const auto& [line, from, to] : {std::tuple{R"(["set","heldSource","cam.mp4"])", 0.0, 30.0},
                                         {R"(["set","heldClip","C02"])", 40.0, 50.0},
                                         {R"(["set","range",[41,41.5]])", 41.0, 41.5}}) {
        lines(line);
        EXPECT_EQ(offer(), std::pair(from, to)) << line;
    }
    lines(R"(["set","pickedClips",["C01","C03"]])");
    EXPECT_EQ(CutCommands::offeredCuts(editor).size(), 1u) << "a range counts before picked clips";
    lines(R"(["set","range",[41,41.05]])");
    EXPECT_EQ(offer(), std::pair(-1.0, -1.0)) << "too short";
    lines(R"(["set","range",null])");
    EXPECT_EQ(CutCommands::offeredCuts(editor).size(), 2u);
    lines(R"(["set","pickedClips",["C03"]])");
    EXPECT_EQ(CutCommands::offeredCuts(editor).at(0).start, 40) << "the held clip counts before one picked";
}

TEST(CutCommands, whatIsPutIsPickedAndFollowsTheFirst) {
    TwoCuts lines;
    lines(R"(["set","pickedClips",["C03","C01"]])", R"(["seek",5])");
    EXPECT_EQ(lines(R"(["insertAtPlayhead"])"), stepped("Add Clips"));
    EXPECT_EQ(played(lines), (Played{{20, 25}, {60, 70}, {20, 30}, {25, 30}, {40, 50}}));
    EXPECT_EQ(pickedPlace(lines), 2u);
    lines(R"(["set","range",[1,2]])", R"(["set","heldSource","cam.mp4"])");
    EXPECT_EQ(lines(R"(["addToEnd"])"), did("Added to the end of One", "Add Clip"));
    EXPECT_EQ(played(lines).back(), std::pair(1.0, 2.0));
    EXPECT_FALSE(lines.editor().range());
    EXPECT_EQ(pickedPlace(lines), 5u);
}

TEST(CutCommands, aVideoFromTheSelectionIsCalledAfterItsOneClip) {
    TwoCuts lines;
    for (const auto* line : {R"(["addToEnd"])", R"(["insertAtPlayhead"])", R"(["newVideoFromSelection"])"})
        EXPECT_EQ(lines(line), did("Pick a clip in the browser first")) << line;
    lines(R"(["renameClip","C02","Fall"])", R"(["set","heldClip","C02"])", R"(["newVideoFromSelection"])");
    EXPECT_EQ(lines.video().title, "Fall · C02");
    EXPECT_EQ(played(lines), (Played{{40, 50}}));
    lines(R"(["set","pickedClips",["C01","C02"]])", R"(["newVideoFromSelection"])");
    EXPECT_EQ(lines.video().title, "Untitled Video");
}

TEST(CutCommands, aGeneratedStretchIsPutSplitAndChanged) {
    TwoCuts lines;
    lines(R"(["seek",5])");
    EXPECT_EQ(lines(R"(["addGenerator","stock.generator.solid"])"), stepped("Add Solid Colour"));
    EXPECT_EQ(played(lines), (Played{{20, 25}, {0, 2}, {25, 30}, {40, 50}}));
    EXPECT_EQ(pickedPlace(lines), 1u);
    lines(R"(["addGenerator","stock.generator.title",0])");
    EXPECT_EQ(played(lines)[0], std::pair(0.0, 3.0));
    EXPECT_EQ(lines(R"(["changeGenerator","cut 3","Colour",{"values":{"colour":"FF0000"}}])"),
              stepped("Colour"));
    EXPECT_EQ(lines.video().cuts[2].generator->values, (Values{{"colour", "FF0000"}}));
    EXPECT_EQ(lines(R"(["changeGenerator","cut 2","Colour",{}])"), fine) << "it shows footage";
    lines(R"(["dragGenerator","cut 3",{"values":{"colour":"00FF00"}}])");
    EXPECT_EQ(lines(R"(["closeDrag"])"), stepped("Drag"));
}

TEST(CutCommands, splittingPicksTheRightPartAndKeepsOffEdits) {
    TwoCuts lines;
    lines(R"(["seek",4])");
    EXPECT_EQ(lines(R"(["splitAtPlayhead"])"), stepped("Split"));
    EXPECT_EQ(played(lines), (Played{{20, 24}, {24, 30}, {40, 50}}));
    EXPECT_EQ(pickedPlace(lines), 1u);
    EXPECT_EQ(lines(R"(["splitAtPlayhead"])"), did("Too near an edit to split"));
    EXPECT_EQ(lines(R"(["blade",12])"), stepped("Blade"));
    EXPECT_EQ(played(lines).back(), std::pair(42.0, 50.0));
    EXPECT_EQ(pickedPlace(lines), 1u) << "a blade picks nothing";
}

TEST(CutCommands, mutingIsForAllUnlessAllAreMuted) {
    TwoCuts lines;
    const auto muted = [&] {
        return std::pair(lines.video().cuts[0].muted.value_or(false),
                         lines.video().cuts[1].muted.value_or(false));
    };
    EXPECT_EQ(lines(R"(["toggleMuteCuts",["cut 2"]])"), stepped("Mute Clip"));
    EXPECT_EQ(lines(R"(["toggleMuteCuts",["cut 1","cut 2"]])"), stepped("Mute Clip"));
    EXPECT_EQ(muted(), std::pair(true, true));
    EXPECT_EQ(lines(R"(["toggleMuteCuts",["cut 1"]])"), stepped("Unmute Clip"));
    EXPECT_EQ(muted(), std::pair(false, true));
}

TEST(CutCommands, removingPicksWhatTakesThePlace) {
    TwoCuts lines;
    lines(R"(["drop",[{"id":")" + UUID::make().text() + R"(","source":")" + lines.rec().text() +
          R"(","start":1,"end":2}],1])");
    EXPECT_EQ(played(lines), (Played{{20, 30}, {1, 2}, {40, 50}}));
    EXPECT_EQ(lines(R"(["removeCut"])"), stepped("Remove Cut"));
    EXPECT_EQ(played(lines), (Played{{20, 30}, {40, 50}}));
    EXPECT_EQ(pickedPlace(lines), 1u);
    lines(R"(["removeCut"])");
    EXPECT_EQ(pickedPlace(lines), 0u) << "the last was removed";
    lines(R"(["removeCut"])");
    EXPECT_FALSE(lines.editor().picked());
    EXPECT_EQ(lines(R"(["removeCut"])"), fine);
}

TEST(CutCommands, quietStretchesAreTakenOutAndCounted) {
    TwoCuts lines;
    const std::string step = "Take Out Quiet Stretches";
    EXPECT_EQ(lines(R"(["takeOutQuiet","cut 2"])"), did("Took out 1 quiet stretch, 2.0 s shorter", step));
    EXPECT_EQ(played(lines), (Played{{20, 30}, {40, 44}, {46, 50}}));
    EXPECT_EQ(lines(R"(["takeOutQuiet","cut 2"])"), did("Nobody is quiet for long in this cut"));
    lines(R"(["trim","cut 1",true,15])");
    EXPECT_EQ(lines(R"(["takeOutQuiet","cut 1"])"), did("Took out 2 quiet stretches, 8.0 s shorter", step));
    EXPECT_EQ(played(lines)[0], std::pair(21.0, 24.0));
}

TEST(CutCommands, aTrimShowsTheEdgeAndAnEndedOneNone) {
    TwoCuts lines;
    auto& editor = lines.editor();
    lines(R"(["trim","cut 2",true,38])");
    EXPECT_EQ(editor.edge(), (TrimEdge{lines.rec(), 38}));
    lines(R"(["trim","cut 2",false,55])");
    EXPECT_NEAR(editor.edge()->at, 55 - 1 / 30.0, 1e-9) << "the last picture";
    EXPECT_EQ(played(lines), (Played{{20, 30}, {38, 55}}));
    lines(R"(["slip","cut 2",83.5])");
    EXPECT_EQ(played(lines)[1], std::pair(83.0, 100.0)) << "within its source";
    EXPECT_EQ(editor.edge()->at, 83);
    EXPECT_EQ(lines(R"(["endTrim","cut 2",true,"Trim"])"), stepped("Trim"));
    EXPECT_FALSE(editor.edge());
    // It plays from 1.5 s before the edit to 1.5 s after it.
    std::vector<double> times;
    QObject::connect(&editor.playback, &Playback::timeChanged,
                     [&] { times.push_back(editor.playback.time()); });
    lines(R"(["trim","cut 1",false,31])", R"(["seek",2])", R"(["endTrim","cut 1",false,"Trim"])");
    EXPECT_THAT(times, testing::IsSupersetOf({2.0, 9.5}));
    EXPECT_EQ(editor.playback.rate(), 1);
    editor.playback.tick(12.4);
    EXPECT_EQ(editor.playback.rate(), 1);
    editor.playback.tick(12.5);
    EXPECT_EQ(editor.playback.rate(), 0);
}

TEST(CutCommands, aRollShowsBothSidesOfItsSeam) {
    TwoCuts lines;
    auto& editor = lines.editor();
    lines(R"(["roll","cut 1",32])");
    EXPECT_EQ(played(lines), (Played{{20, 32}, {42, 50}}));
    ASSERT_TRUE(editor.edge());
    EXPECT_NEAR(editor.edge()->at, 32 - 1 / 30.0, 1e-9);
    EXPECT_EQ(editor.edgeAfter(), (TrimEdge{lines.rec(), 42}));
    EXPECT_EQ(lines(R"(["endTrim","cut 1",false,"Roll"])"), stepped("Roll"));
    EXPECT_FALSE(editor.edge() || editor.edgeAfter());
    lines(R"(["trim","cut 2",false,1e6])");
    EXPECT_EQ(played(lines)[1], std::pair(42.0, 100.0)) << "as far as its source goes";
    lines(R"(["undo"])", R"(["undo"])");
    EXPECT_EQ(played(lines), (Played{{20, 30}, {40, 50}}));
}

TEST(CutCommands, movingPicksAndJumpingFocuses) {
    TwoCuts lines;
    auto& editor = lines.editor();
    EXPECT_EQ(lines(R"(["move","cut 2",0])"), stepped("Move Cut"));
    EXPECT_EQ(played(lines), (Played{{40, 50}, {20, 30}}));
    EXPECT_EQ(pickedPlace(lines), 0u);
    lines(R"(["set","focus","source"])");
    for (const auto& [from, next, to] : {std::tuple{3.0, true, 10.0},
                                         {10.0, true, 19.99},
                                         {9.995, true, 19.99},
                                         {3.0, false, 0.0},
                                         {10.005, false, 0.0},
                                         {15.0, false, 10.0}}) {
        editor.playback.seek(from);
        lines(std::string("[\"jumpToEdit\",") + (next ? "true" : "false") + "]");
        EXPECT_NEAR(editor.playback.time(), to, 1e-9) << from;
    }
    EXPECT_EQ(editor.focus(), Viewer::video);
}

TEST(CutCommands, aGeneratedCutIsTrimmedAndRolledAgainst) {
    Lines lines;
    auto& editor = lines.editor();
    lines(R"(["addGenerator","stock.generator.title"])");
    const auto card = editor.video()->cuts[0].id;
    CutCommands::trim(editor, card, false, 4.5);
    EXPECT_FALSE(editor.edge()) << "there is no footage to show";
    CutCommands::endTrim(editor, card, false, "Trim");
    EXPECT_EQ(editor.video()->cuts[0].length(), 4.5);
    EXPECT_EQ(editor.history().undoName(), "Trim");

    const Cut footage{.source = editor.project().sources[0].id, .start = 20, .end = 25};
    CutCommands::drop(editor, {footage}, 0);
    CutCommands::roll(editor, footage.id, 27);
    ASSERT_TRUE(editor.edge());
    EXPECT_NEAR(editor.edge()->at, 27 - 1 / editor.playback.frameRate(), 1e-9);
    EXPECT_FALSE(editor.edgeAfter());
    CutCommands::endTrim(editor, footage.id, false, "Roll");
    EXPECT_EQ(editor.video()->cuts[1].length(), 2.5);
    EXPECT_FALSE(editor.edge());
    lines(R"(["undo"])");
    EXPECT_EQ(editor.video()->cuts[0].end, 25);
    EXPECT_EQ(editor.video()->cuts[1].length(), 4.5);
}
