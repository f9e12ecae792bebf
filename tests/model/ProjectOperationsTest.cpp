#include "core/model/edits/ProjectOperations.h"
#include "platform/base/Problem.h"

#include <limits>

#include <gtest/gtest.h>

using namespace murbo;
using namespace ProjectOperations;

TEST(ProjectOperations, copiesOfAVideoTakeTheNextFreeLetter) {
    Project project;
    newVideo(project, "One", Video::Aspect::square);
    const auto video = newVideo(project, "Two", Video::Aspect::vertical);
    project.videos.edit()[1].cuts.edit().emplace_back();
    const auto first = duplicate(project, video.id), second = duplicate(project, first->id);
    EXPECT_EQ(project.videos[2].id, first->id);
    EXPECT_EQ(first->tag() + second->tag() + second->title, "V2aV2bTwo copy copy");
    EXPECT_NE(first->cuts[0].id, project.videos[1].cuts[0].id);
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
    before.videos.edit()[2].look.emplace().mix.emplace().toggleMute(Lane::video);
    project.videos.edit()[0].look.emplace().mix.emplace().toggleMute(Lane::music);
    project.videos.edit().pop_back();
    auto undone = before;
    keep(undone, mutes(project));
    EXPECT_TRUE(undone.videos[0].look->mix->isMuted(Lane::music));
    EXPECT_EQ(undone.videos[1].look, std::nullopt);
    EXPECT_TRUE(undone.videos[2].look->mix->isMuted(Lane::video));
    keep(undone, mutes(before));
    EXPECT_EQ(undone.videos[0].look->mix->muted, std::nullopt);
}
