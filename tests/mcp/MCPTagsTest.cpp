#include "core/mcp/MCPTags.h"
#include "tests/mcp/Calling.h"

using namespace murbo;

using MCPTagsTest = Calling;

TEST_F(MCPTagsTest, aMomentIsNamedByTheNearestLine) {
    const Said said(project);
    for (const auto& [second, name] : {std::pair{3.5, "C01.02"},
                                       {4.005, "C01.02"},
                                       {4.2, "C01.02 + 0.2 s"},
                                       {4.8, "C01.03 - 0.2 s"},
                                       {0.0, "C01.01 - 1.0 s"},
                                       {90.0, "C02.01 - 11.0 s"},
                                       {50.0, "C01.03 + 44.0 s"}})
        EXPECT_EQ(MCPTags::line(second, source(), said), name) << second;
    EXPECT_FALSE(MCPTags::line(1, UUID::make(), said));
}

TEST_F(MCPTagsTest, aVideoIsFoundInAnyCaseAndElseTheOthersAreNamed) {
    EXPECT_EQ(&MCPTags::video(" v1 ", project), &project.videos[0]);
    const auto named = [&](const json& tag) { return problemOf([&] { MCPTags::video(tag, project); }); };
    EXPECT_EQ(named(1), "There is no video 1. The videos are V1.");
    EXPECT_EQ(named(nullptr), "There is no video (nothing). The videos are V1.");
    for (int count = 2; count <= 62; ++count) addVideo("x", {});
    EXPECT_TRUE(named("V99").ends_with(", V59, V60 and 2 more.")) << named("V99");
    project.videos = {};
    EXPECT_EQ(named("V1"), "There is no video V1. There are no videos yet; make_video makes one.");
}

TEST_F(MCPTagsTest, clipsStandInTheOrderAskedForEachOnce) {
    const auto found = MCPTags::clips({"c02", " C01", "C02"}, project);
    EXPECT_EQ(found, (std::vector{&project.clips[1], &project.clips[0]}));
    const auto named = [&](const json& tags) { return problemOf([&] { MCPTags::clips(tags, project); }); };
    EXPECT_EQ(named({"C01", "C3\n0"}), "There is no clip C3 0. overview lists them.");
    EXPECT_EQ(named({"C01", 2}), "Name the clips by tag, like C14.");
    EXPECT_EQ(named(json::array()), "Name the clips by tag, like C14.");
}
