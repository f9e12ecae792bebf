#include "core/intake/Sources.h"
#include "core/model/Project.h"

#include <gmock/gmock.h>

using namespace murbo;
using testing::ElementsAre;

TEST(Sources, shortCameraFilesBecomeClipsAndLongOnesDoNot) {
    Project project;
    const auto ids =
        Sources::add(project, {{"/a/x.mp4", 600}, {"/a/y \"z\"\n.mp4", 600.01}}, "Day", Source::Kind::file);
    ASSERT_EQ(project.sources.size(), 2);
    EXPECT_THAT(ids, ElementsAre(project.sources[0].id, project.sources[1].id));
    EXPECT_EQ(project.sources[1].path, "/a/y \"z\"\n.mp4");
    EXPECT_EQ(project.sources[1].group, project.groups[0].id);
    EXPECT_EQ(project.groups[0].name, "Day");
    ASSERT_EQ(project.clips.size(), 1);
    EXPECT_EQ(project.clips[0], (Clip{.id = project.clips[0].id, .number = 1, .source = ids[0], .end = 600}));
    EXPECT_EQ(project.lastClip, 1);
}

TEST(Sources, aStreamKeepsItsMarkersAndHasNoWholeClip) {
    Project project;
    const MeasuredFile recording{"/a/2024-05-17 21-03.mkv", 500};
    const auto markers = std::string("time,label\n0:10,a\n");
    const auto id = Sources::addStream(project, recording, {"m.csv", markers, "a game"});
    EXPECT_EQ(project.groups[0].name, "2024-05-17 21-03");
    const auto* source = project.source(id);
    EXPECT_EQ(source->stream, (Source::Stream{"m.csv", markers}));
    EXPECT_EQ(source->note, "a game");
    ASSERT_EQ(project.clips.size(), 1);
    EXPECT_EQ(project.clips[0].end, 70);

    // Markers that hold nothing are still kept; markers that could not be read are none.
    EXPECT_TRUE(project.source(Sources::addStream(project, recording, {"m.csv", ""}))->stream);
    EXPECT_FALSE(project.source(Sources::addStream(project, recording, {"m.csv", std::nullopt}))->stream);
    EXPECT_EQ(project.clips.size(), 1);
}
