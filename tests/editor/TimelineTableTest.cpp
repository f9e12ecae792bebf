#include "app/editor/commands/TimelinePicks.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

namespace {

/// The JSON of picks, each a kind and an id.
std::string picks(const std::vector<std::pair<std::string, UUID>>& all) {
    std::string text;
    for (const auto& [kind, id] : all)
        text += (text.empty() ? "[\"" : ",[\"") + kind + "\",\"" + id.text() + "\"]";
    return "[" + text + "]";
}

}

TEST(TimelineTable, clicksFollowTheHeldKeys) {
    TwoCuts lines;
    const auto one = lines.video().cuts[0].id;
    const auto two = lines.video().cuts[1].id;
    EXPECT_FALSE(lines.possible("removePicked") || lines.possible("removeAllPicked"));
    lines(R"(["set","morePicked",[["cut","cut 2"]]])");
    EXPECT_TRUE(lines.possible("removePicked") && lines.possible("removeAllPicked"));
    lines(R"(["clickOnTimeline",["cut","cut 1"]])", R"(["modifiers","shift"])");
    lines(R"(["clickOnTimeline",["cut","cut 2"]])");
    EXPECT_EQ(lines(R"(["timelinePicks"])"), gave(picks({{"cut", one}, {"cut", two}})));
    EXPECT_EQ(lines.editor().picked()->id, two);
    EXPECT_EQ(lines(R"(["isPicked",["cut","cut 1"]])"), gave("true"));
    lines(R"(["modifiers"])", R"(["clickOnTimeline",["cut","cut 2"]])");
    EXPECT_EQ(lines(R"(["isPicked",["cut","cut 1"]])"), gave("false"));
    EXPECT_EQ(lines(R"(["exists",["cut","cut 1"]])"), gave("true"));
    lines(R"(["setPicks",[["cut","cut 2"],["cut","cut 1"]]])");
    EXPECT_EQ(lines(R"(["timelinePicks"])"), gave(picks({{"cut", two}, {"cut", one}})));
}

TEST(TimelineTable, aRubberBandCatchesWhatItMeetsInTheRowsAskedFor) {
    TwoCuts lines;
    lines(R"(["addOverlay","stock.hearts",4])");
    lines.editor().change("Sounds", [&](Project& project) {
        auto& look = *project.videos.edit()[0].look;
        look.overlays.edit().push_back({.playbook = "gone", .source = lines.rec(), .at = 26, .length = 1});
        look.sounds.edit().push_back({.file = "s.wav", .source = lines.rec(), .at = 25});
        look.music.edit().push_back({.file = "m.wav", .source = lines.rec(), .at = 25});
        look.shots.edit().push_back({.source = lines.rec(), .at = 42});
    });
    const auto& look = lines.look();
    const auto one = lines.video().cuts[0].id;
    const auto two = lines.video().cuts[1].id;
    const auto band = [&](const std::string& range, const std::string& rows) {
        return lines("[\"picks\"," + range + "," + rows + "]");
    };
    EXPECT_EQ(band("9,11", R"(["picture"])"), gave(picks({{"cut", one}, {"cut", two}})));
    EXPECT_EQ(band("11,9", R"(["picture"])"), gave(picks({{"cut", one}, {"cut", two}})))
        << "drawn to the left";
    EXPECT_EQ(band("10,11", R"(["picture"])"), gave(picks({{"cut", two}})));
    EXPECT_EQ(band("6.9,8", R"(["overlays"])"), gave(picks({{"overlay", look.overlays[0].id}})));
    EXPECT_EQ(band("7,8", R"(["overlays","shots"])"), gave("[]"));
    EXPECT_EQ(band("6.1,6.3", R"(["sounds"])"), gave(picks({{"sound", look.sounds[0].id}})));
    EXPECT_EQ(band("6.3,8", R"(["sounds"])"), gave("[]")) << "a sound of unknown length is short";
    EXPECT_EQ(band("19,20", R"(["music","sounds"])"), gave(picks({{"music", look.music[0].id}})));
    EXPECT_EQ(band("19,20", R"(["shots"])"), gave(picks({{"shot", look.shots[0].id}})));
    EXPECT_EQ(band("0,11", R"(["shots"])"), gave("[]"));
    const auto captions = TimelinePicks::caught(lines.editor(), 0, 4.5, {TimelineRow::captions});
    ASSERT_EQ(captions.size(), 1u);
    EXPECT_EQ(captions[0].id, lines.line(0).id);
}

TEST(TimelineTable, aDraggedTimeSnapsWithinReachOfWhatItIsNot) {
    TwoCuts lines;
    lines(R"(["set","snapping",true])", R"(["seek",5.3])");
    EXPECT_EQ(lines(R"(["snapped",10.02,100])"), gave("10"));
    EXPECT_EQ(lines(R"(["snapped",5.32,100])"), gave("5.3")) << "the playhead";
    EXPECT_EQ(lines(R"(["snapped",5.32,0])"), gave("5.32"));
    EXPECT_EQ(lines(R"(["snapped",1.02,100])"), gave("1")) << "a caption's start";
    EXPECT_EQ(lines(R"(["snapped",1.02,100,null,"C01.01"])"), gave("1.02")) << "its own";
    EXPECT_EQ(lines(R"(["snapped",17.0,100])"), gave("17"));
    EXPECT_EQ(lines(R"(["snappedEdge",25.98,"rec.mp4",100])"), gave("26"));
    EXPECT_EQ(lines(R"(["snappedEdge",25.98,"cam.mp4",100])"), gave("25.98"));
    EXPECT_EQ(lines(R"(["shift",2.5,9.5,0.48,100])"), gave("0.5")) << "the end catches";
    lines(R"(["modifiers","option"])");
    EXPECT_EQ(lines(R"(["snapped",10.02,100])"), gave("10.02"));
    EXPECT_EQ(lines(R"(["snappedEdge",25.98,"rec.mp4",100])"), gave("25.98"));
    lines(R"(["modifiers"])", R"(["set","snapping",false])");
    EXPECT_EQ(lines(R"(["snapped",10.02,100])"), gave("10.02"));
    lines(R"(["set","snapping",true])");
}

TEST(TimelineTable, picksAreAskedAboutAndCopiedInWords) {
    TwoCuts lines;
    QString copied;
    QObject::connect(&lines.editor(), &Editor::copied, [&](const QString& text) { copied = text; });
    lines(R"(["set","picked",["cut","cut 2"]])");
    const std::string words = "In V1 “One”, these: cut 2 (C02.01 to C02.02). ";
    EXPECT_EQ(lines(R"(["picksInWords"])"), gave("\"" + words.substr(0, words.size() - 2) + "\""));
    EXPECT_EQ(lines(R"(["copyPicks"])"),
              did("Copied: say what to do with them, in an AI app with Murbo connected"));
    EXPECT_EQ(copied.toStdString(), words);
    EXPECT_EQ(lines(R"(["askAboutPicks"])"), fine);
    EXPECT_EQ(lines.editor().asking(), words);
    EXPECT_EQ(lines.editor().inspectorTab(), InspectorTab::ask);
}
