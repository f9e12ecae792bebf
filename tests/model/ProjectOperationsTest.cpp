#include "core/model/edits/ProjectOperations.h"
#include "platform/base/Problem.h"

#include <limits>

#include <gtest/gtest.h>

using namespace murbo;
using namespace ProjectOperations;

TEST(ProjectOperations, copiesOfAVideoTakeTheNextFreeLetter) {
    Project project;
    newVideo(project, "One", Video::Aspect::square);
    const auto video = newVideo(project, "Two", Video::Aspect::square);
    EXPECT_EQ(project.videos[1],
              (Video{.id = video.id, .number = 2, .title = "Two", .aspect = Video::Aspect::square}));
    project.videos.edit()[1].cuts.edit() = {{.start = 1, .end = 2, .muted = true}};
    project.videos.edit()[1].look.emplace().music.edit() = {{.file = "song.mp3"}};
    const auto first = duplicate(project, video.id), second = duplicate(project, first->id);
    EXPECT_NE(first->cuts[0].id, project.videos[1].cuts[0].id);
    auto expected = project.videos[1];
    expected.id = first->id;
    expected.part = "a";
    expected.title = "Two copy";
    expected.cuts.edit()[0].id = first->cuts[0].id;
    EXPECT_EQ(project.videos[2], expected);
    EXPECT_EQ(second->tag() + second->title, "V2bTwo copy copy");
    EXPECT_EQ(project.lastVideo, 2);
    for (int copies = 0; copies < 24; ++copies) duplicate(project, video.id);
    EXPECT_EQ(duplicate(project, video.id)->part, "z");
    EXPECT_EQ(duplicate(project, project.videos[0].id)->part, "a") << "each number has its own letters";
    EXPECT_EQ(duplicate(project, UUID::make()), std::nullopt);

    project.lastVideo = std::numeric_limits<std::int64_t>::max();
    EXPECT_THROW(newVideo(project, "", Video::Aspect::square), Problem) << "numbers do not wrap round";
}

TEST(ProjectOperations, quietIsWhereNobodySpeaks) {
    Project project;
    const auto source = UUID::make();
    project.transcripts[source].lines.edit() = {{.start = 14, .end = 15},
                                                {.start = 11, .end = 13},
                                                {.start = 11.5, .end = 12},
                                                {.start = 16, .end = 18, .gone = true},
                                                {.start = 0, .end = 10}};
    using Stretches = std::vector<Stretch>;
    EXPECT_EQ(quiet(project, source, {10, 20}, 1), (Stretches{{10, 11}, {13, 14}, {15, 20}}));
    EXPECT_EQ(quiet(project, source, {10, 20}, 1.01), (Stretches{{15, 20}}));
    EXPECT_EQ(quiet(project, UUID::make(), {1, 2}, 1), (Stretches{{1, 2}}));
}

TEST(ProjectOperations, lanesTurnedOffStayOffOverAnUndo) {
    Project project;
    for (int count = 0; count < 3; ++count) newVideo(project, "", Video::Aspect::square);
    auto before = project;
    before.videos.edit()[0].look.emplace().music.edit() = {{.file = "song.mp3"}};
    before.videos.edit()[2].look.emplace().mix.emplace().toggleMute(Lane::video);
    before.videos.edit()[2].look->mix->music = 0.25;
    project.videos.edit()[0].look.emplace().mix.emplace().toggleMute(Lane::music);
    project.videos.edit().pop_back();
    auto undone = before, expected = before;
    expected.videos.edit()[0].look->mix.emplace().toggleMute(Lane::music);
    keep(undone, mutes(project));
    EXPECT_EQ(undone, expected) << "the last of the three was not there to be turned off";
    expected.videos.edit()[0].look->mix->muted.reset();
    keep(undone, mutes(before));
    EXPECT_EQ(undone, expected);
}
