#include "app/editor/commands/OverlayCommands.h"
#include "core/playbooks/Playbooks.h"
#include "tests/editor/TwoCuts.h"

using namespace murbo;

TEST(OverlayCommands, anAddedOneStandsOnTheFootageAndIsPicked) {
    TwoCuts lines;
    lines(R"(["seek",12.5])");
    EXPECT_EQ(lines(R"(["addOverlay","stock.confetti"])"), stepped("Add Confetti"));
    ASSERT_EQ(lines.look().overlays.size(), 1u);
    const auto& overlay = lines.look().overlays[0];
    EXPECT_EQ(overlay, (Overlay{.id = overlay.id,
                                .playbook = "stock.confetti",
                                .source = lines.rec(),
                                .at = 42.5,
                                .length = 2.5,
                                .mute = Playbooks::find("stock.confetti")->playbook.mute}));
    EXPECT_EQ(lines.editor().picked(), (Pick{Pick::Kind::overlay, overlay.id, {}}));
    EXPECT_TRUE(Playbooks::copy("stock.confetti", 1, lines.package()));
    lines(R"(["addOverlay","stock.sticker",3])");
    EXPECT_EQ(lines.look().overlays[1].at, 23) << "where it is put, not at the playhead";
    EXPECT_EQ(lines.look().overlays[1].version, 3);
}

TEST(OverlayCommands, whatItsPlaybookSaysOfTheFootagesSoundComesAlong) {
    TwoCuts lines;
    auto loud = Playbook::decode(R"({"name": "Loud", "mute": true, "length": 1, "layers": [{"text": "x"}]})");
    const auto id = Playbooks::write(std::move(loud), {}, "the test").id();
    lines("[\"addOverlay\",\"" + id + "\",3]");
    ASSERT_EQ(lines.look().overlays.size(), 1u);
    EXPECT_EQ(lines.look().overlays[0].mute, true);
    EXPECT_EQ(lines.look().overlays[0].length, 1) << "as long as it is by nature";
}

TEST(OverlayCommands, itEndsWithTheVideoButIsNoFlash) {
    TwoCuts lines;
    for (const auto& [at, length] : {std::pair{17.0, 3.0}, {17.5, 2.5}, {19.75, 0.25}, {19.9, 0.2}}) {
        lines("[\"addOverlay\",\"stock.hearts\"," + std::to_string(at) + "]");
        EXPECT_NEAR(lines.look().overlays.back().length, length, 1e-9) << at;
    }
}

TEST(OverlayCommands, aLayoutIsAShotThere) {
    TwoCuts lines;
    EXPECT_EQ(lines(R"(["addOverlay","stock.layout.wide",12])"), stepped("Cut to Wide"));
    EXPECT_TRUE(lines.look().overlays.empty());
    ASSERT_EQ(lines.look().shots.size(), 1u);
    EXPECT_EQ(lines.look().shots[0].at, 42);
    EXPECT_EQ(lines.look().shots[0].playbook, "stock.layout.wide");
    EXPECT_EQ(lines.look().shots[0].layout, Shot::Layout::split);
}

TEST(OverlayCommands, mediaIsKeptInTheProject) {
    TwoCuts lines;
    const auto file = lines.folder.file("cat.png", "meow").string();
    EXPECT_EQ(lines("[\"addMedia\",\"" + file + "\"]"), stepped("Add cat.png"));
    const auto& overlay = lines.look().overlays[0];
    EXPECT_EQ(overlay.playbook, "stock.generator.picture");
    EXPECT_EQ(overlay.values, (Values{{"media", "media/pictures/cat.png"}}));
    EXPECT_EQ(overlay.length, 4);
    EXPECT_EQ(lines.editor().picked()->id, overlay.id);
    EXPECT_EQ(lines("[\"addMedia\",\"" + file + ".gone\"]"),
              did("cat.png.gone could not be copied into the project"));
    EXPECT_EQ(lines.look().overlays.size(), 1u);
}

TEST(OverlayCommands, draggingMovesOrStretchesOne) {
    TwoCuts lines;
    lines(R"(["addOverlay","stock.hearts",1])", R"(["addOverlay","stock.hearts",2])");
    const auto overlay = [&](std::size_t at) { return lines.look().overlays[at]; };
    EXPECT_EQ(lines(R"(["dragOverlay","overlay 1",12])"), fine);
    EXPECT_EQ(overlay(0).at, 42);
    EXPECT_EQ(overlay(0).length, 3);
    lines(R"(["dragOverlay","overlay 1",null,1.5])");
    EXPECT_EQ(overlay(0).at, 42);
    EXPECT_EQ(overlay(0).length, 1.5);
    lines(R"(["dragOverlay","overlay 1",null,0])");
    EXPECT_EQ(overlay(0).length, 0.2);
    EXPECT_EQ(overlay(1).at, 22);
    EXPECT_EQ(overlay(1).length, 3);
    EXPECT_EQ(lines(R"(["changeOverlay","overlay 2","Mute",{"mute":true}])"), stepped("Mute"));
    EXPECT_EQ(overlay(1).mute, true);
    EXPECT_NE(overlay(0).mute, true);
    EXPECT_EQ(lines(R"(["removeOverlay","overlay 2"])"), stepped("Remove Overlay"));
    ASSERT_EQ(lines.look().overlays.size(), 1u);
    EXPECT_EQ(overlay(0).at, 42);
    EXPECT_FALSE(lines.editor().picked()) << "it is gone";
}

TEST(OverlayCommands, updatingTakesTheLibrarysVersion) {
    TwoCuts lines;
    lines(R"(["addOverlay","stock.sticker",1])", R"(["changeOverlay","overlay 1","x",{"version":1}])");
    EXPECT_EQ(lines(R"(["updateOverlay","overlay 1"])"), stepped("Update Playbook"));
    EXPECT_EQ(lines.look().overlays[0].version, 3);
    lines(R"(["changeOverlay","overlay 1","x",{"playbook":"stock.hearts"}])");
    lines(R"(["updateOverlay","overlay 1"])");
    EXPECT_TRUE(Playbooks::copy("stock.hearts", lines.look().overlays[0].version, lines.package()));
    lines(R"(["changeOverlay","overlay 1","x",{"playbook":"gone"}])");
    EXPECT_EQ(lines(R"(["updateOverlay","overlay 1"])"), fine);
}

TEST(OverlayCommands, wantAVideoWithCuts) {
    Lines lines;
    EXPECT_FALSE(lines.possible("addOverlay"));
    EXPECT_EQ(lines(R"(["addOverlay","stock.hearts"])"), did("Open a video with cuts first"));
    lines(R"(["newVideo","9:16","Empty"])");
    EXPECT_TRUE(lines.possible("addOverlay"));
    EXPECT_EQ(lines(R"(["addOverlay","stock.layout.wide"])"), did("Open a video with cuts first"));
    EXPECT_EQ(lines(R"(["addMedia","/x.png"])"), did("Open a video with cuts first"));
}
