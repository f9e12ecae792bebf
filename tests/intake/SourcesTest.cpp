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
    EXPECT_EQ(project.sources[1], (Source{.id = ids[1],
                                          .group = project.groups[0].id,
                                          .path = "/a/y \"z\"\n.mp4",
                                          .kind = Source::Kind::file,
                                          .length = 600.01}));
    EXPECT_EQ(project.groups[0].name, "Day");
    ASSERT_EQ(project.clips.size(), 1);
    EXPECT_EQ(project.clips[0], (Clip{.id = project.clips[0].id, .number = 1, .source = ids[0], .end = 600}));
    EXPECT_EQ(project.lastClip, 1);
    Sources::add(project, {{"/a/z.mp4", 30}, {"/a/w.mp4", 31}}, "Night", Source::Kind::file, 30);
    EXPECT_EQ(project.clips.size(), 2) << "with a limit of its own";
    EXPECT_EQ(project.groups[1].name, "Night");
}

TEST(Sources, aStreamKeepsItsMarkersAndHasNoWholeClip) {
    Project project;
    const MeasuredFile recording{"/a/2024-05-17 21-03.mkv", 500};
    const auto markers = std::string("time,label\n0:10,a\n");
    const auto id = Sources::addStream(project, recording, {"m.csv", markers, "a game"});
    EXPECT_EQ(project.groups[0].name, "2024-05-17 21-03");
    const auto* source = project.source(id);
    EXPECT_EQ(source->kind, Source::Kind::stream);
    EXPECT_EQ(source->length, 500);
    EXPECT_EQ(source->group, project.groups[0].id);
    EXPECT_EQ(source->stream, (Source::Stream{"m.csv", markers}));
    EXPECT_EQ(source->note, "a game");
    ASSERT_EQ(project.clips.size(), 1);
    EXPECT_EQ(project.clips[0].end, 70);

    // Markers that hold nothing are still kept; markers that could not be read are none.
    EXPECT_TRUE(project.source(Sources::addStream(project, recording, {"m.csv", ""}))->stream);
    EXPECT_FALSE(project.source(Sources::addStream(project, recording, {"m.csv", std::nullopt}))->stream);
    EXPECT_EQ(project.clips.size(), 1);
    Sources::addStream(project, recording, {"m.csv", "1:40"}, {.before = 20, .after = 5});
    EXPECT_EQ(std::tuple(project.clips[1].start, project.clips[1].end, project.clips[1].marks),
              std::tuple(80.0, 105.0, std::vector{100.0}));
    const MeasuredFile many{"/a/many.mkv", 1e9};
    std::string lines;
    for (int at = 0; at <= 100'000; ++at) lines += "1:40\n";
    Sources::addStream(project, many, {"m.csv", lines});
    EXPECT_EQ(project.clips[2].marks.size(), 100'000);
}
