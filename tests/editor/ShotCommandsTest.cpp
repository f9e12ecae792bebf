#include "app/editor/commands/ShotCommands.h"
#include "tests/editor/Lines.h"

#include <gtest/gtest.h>

using namespace murbo;

TEST(ShotCommands, aPunchKeepsTheFramingWithItsValues) {
    Lines lines;
    auto& editor = lines.editor();
    lines(R"(["set","heldClip","C01"])");
    lines(R"(["addToEnd"])");
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
    EXPECT_EQ(shots[1].at, shots[0].at + 5);
    EXPECT_EQ(shots[1].playbook, shots[0].playbook);
    EXPECT_EQ(shots[1].version, shots[0].version);
    EXPECT_EQ(shots[1].values, shots[0].values);
}
