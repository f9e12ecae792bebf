#include "app/editor/commands/ShotCommands.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(ShotCommands, aPunchKeepsTheFramingWithItsValues) {
    Lines lines;
    auto& editor = lines.editor();
    lines(R"(["set","heldClip","C01"])", R"(["addToEnd"])");
    editor.change("Frame", [](Project& project) {
        auto& video = project.videos.edit()[0];
        video.look.emplace().shots.edit().push_back({.source = video.cuts[0].source,
                                                     .at = video.cuts[0].start,
                                                     .playbook = "side-by-side",
                                                     .version = 2,
                                                     .values = Values{{"tint", "red"}}});
    });
    lines(R"(["seek",5])");
    ShotCommands::punch(editor);
    const auto& shots = editor.video()->look->shots;
    ASSERT_EQ(shots.size(), 2u);
    EXPECT_GT(shots[1].zoom, 1);
    auto expected = shots[0];
    std::tie(expected.id, expected.at, expected.zoom) = std::tuple(shots[1].id, 25, shots[1].zoom);
    EXPECT_EQ(shots[1], expected);
}

TEST(ShotCommands, aCutChangesTheShotThatStandsThere) {
    TwoCuts lines;
    lines(R"(["seek",5])");
    EXPECT_EQ(lines(R"(["cut","face"])"), stepped("Cut to Face"));
    ASSERT_EQ(lines.look().shots.size(), 1u);
    const auto shot = lines.look().shots[0];
    EXPECT_EQ(shot, (Shot{.id = shot.id, .source = lines.rec(), .at = 25, .layout = Shot::Layout::face}));
    EXPECT_EQ(lines.editor().picked(), (Pick{Pick::Kind::shot, shot.id, {}}));
    lines(R"(["seek",5.04])");
    EXPECT_EQ(lines(R"(["cut","split","stock.layout.wide"])"), stepped("Cut to Wide"));
    ASSERT_EQ(lines.look().shots.size(), 1u);
    EXPECT_EQ(lines.look().shots[0].at, 25);
    EXPECT_EQ(lines.look().shots[0].playbook, "stock.layout.wide");
    lines(R"(["cut","content"])");
    EXPECT_FALSE(lines.look().shots[0].playbook || lines.look().shots[0].version);
    lines(R"(["seek",5.06])", R"(["cut","content"])");
    EXPECT_EQ(lines.look().shots.size(), 2u);
    EXPECT_EQ(lines.editor().picked()->id, lines.look().shots[1].id);
}

TEST(ShotCommands, aPunchGoesOutWhereTheShotOnScreenIsIn) {
    TwoCuts lines;
    lines(R"(["seek",2])", R"(["cut","face"])", R"(["changeShot","shot 1","x",{"zoom":1.05}])");
    lines(R"(["seek",4])");
    EXPECT_EQ(lines(R"(["punch"])"), stepped("Punch In"));
    EXPECT_EQ(lines.look().shots[1].layout, Shot::Layout::face);
    lines(R"(["seek",6])");
    EXPECT_EQ(lines(R"(["punch"])"), stepped("Punch Out"));
    EXPECT_EQ(lines.look().shots[2].zoom, 1);
    lines(R"(["seek",1])");
    EXPECT_EQ(lines(R"(["punch"])"), stepped("Punch In")) << "before the first, nothing is on screen";
    EXPECT_EQ(lines(R"(["punch"])"), stepped("Punch Out"));
    EXPECT_EQ(lines.look().shots.size(), 4u) << "one takes the other's place";
}

TEST(ShotCommands, aShotIsChangedMovedAndRemovedByItself) {
    TwoCuts lines;
    for (const auto* at : {"2", "5"}) {
        lines(std::string("[\"seek\",") + at + "]");
        lines(R"(["cut","face"])");
    }
    EXPECT_EQ(lines(R"(["changeShot","shot 2","Zoom",{"zoom":1.5}])"), stepped("Zoom"));
    EXPECT_EQ(lines(R"(["moveShot","shot 2",26])"), fine);
    EXPECT_EQ(lines.look().shots[0].at, 22);
    EXPECT_EQ(lines.look().shots[0].zoom, 1);
    EXPECT_EQ(lines.look().shots[1].at, 26);
    EXPECT_EQ(lines(R"(["removeShot","shot 1"])"), stepped("Remove Shot"));
    ASSERT_EQ(lines.look().shots.size(), 1u);
    EXPECT_EQ(lines.look().shots[0].zoom, 1.5);
    lines(R"(["delete","V1"])");
    EXPECT_EQ(lines(R"(["cut","face"])"), did("Open a video with cuts first"));
    EXPECT_EQ(lines(R"(["punch"])"), fine);
}
