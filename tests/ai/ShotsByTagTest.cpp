#include "tests/ProblemOf.h"
#include "tests/ai/ByTag.h"

using namespace murbo;

using ShotsByTagTest = ByTag;

TEST_F(ShotsByTagTest, shotsStartOnTheirLines) {
    EXPECT_EQ(shots(R"([{"at": "C01.02", "layout": " Face ", "zoom": "3", "move": "push"},
                        {"at": "C01.03", "layout": "duo", "zoom": 0.2, "move": "fly"},
                        {"at": "C01.04", "layout": "split"}, {"at": "C01.03", "layout": "none"}, 7])",
                    {{"duo", 4}}),
              "V1 has 2 shots. Left out: C01.04: not a line the video plays; C01.03: no layout none; "
              "(nothing): not a line the video plays.");
    const auto& made = *look().shots;
    const Shot raised{
        .id = made[0].id, .source = source(), .at = 3.2, .layout = Shot::Layout::face, .zoom = 2};
    EXPECT_EQ(made[0].move, "push");
    EXPECT_EQ(std::tie(made[0].at, made[0].layout, made[0].zoom),
              std::tie(raised.at, raised.layout, raised.zoom))
        << "raised to the cut's start";
    EXPECT_EQ(made[1],
              (Shot{.id = made[1].id, .source = source(), .at = 5, .playbook = "duo", .version = 4}));
    EXPECT_EQ(LastRuns::of(project.videos[0].runs, Kit::ID::look), run);
}

TEST_F(ShotsByTagTest, aChangeOfWhichNothingHoldsUpChangesNothing) {
    const auto before = project;
    EXPECT_EQ(problemOf([&] { shots(R"([{"at": "C09.01", "layout": "face"}])"); }),
              "No shot holds up. C09.01: not a line the video plays");
    EXPECT_EQ(problemOf([&] { sounds(R"([{"file": "none.wav", "at": "C01.02"}])"); }),
              "No sound holds up. none.wav: no such sound; list_sounds names them");
    EXPECT_EQ(project, before);
}

TEST_F(ShotsByTagTest, aShotInItsPlaceKeepsWhatModelsCannotName) {
    shots(R"([{"at": "C01.03", "layout": "face"}])");
    look().shots.edit()[0].transition = "dip";
    const auto id = look().shots[0].id;
    shots(R"([{"at": "C01.03", "layout": "face", "zoom": 1.5}])");
    EXPECT_EQ(look().shots[0].transition, "dip");
    EXPECT_EQ(look().shots[0].zoom, 1.5);
    EXPECT_EQ(look().shots[0].id, id);
}
