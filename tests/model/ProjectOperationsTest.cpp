#include "core/model/ProjectOperations.h"
#include "platform/base/Problem.h"

#include <limits>

#include <gtest/gtest.h>

using namespace murbo;

TEST(ProjectOperations, copiesOfAVideoTakeTheNextFreeLetter) {
    Project project;
    ProjectOperations::newVideo(project, "One", Video::Aspect::square);
    auto video = ProjectOperations::newVideo(project, "Two", Video::Aspect::vertical);
    project.videos.edit()[1].cuts.edit().emplace_back();
    const auto first = ProjectOperations::duplicate(project, video.id);
    const auto second = ProjectOperations::duplicate(project, first->id);
    EXPECT_EQ(project.videos[2].id, first->id);
    EXPECT_EQ(first->tag() + second->tag() + second->title, "V2aV2bTwo copy copy");
    EXPECT_NE(first->cuts[0].id, project.videos[1].cuts[0].id);
    EXPECT_EQ(project.lastVideo, 2);
    for (int copies = 0; copies < 24; ++copies) ProjectOperations::duplicate(project, video.id);
    EXPECT_EQ(ProjectOperations::duplicate(project, video.id)->part, "z");
    EXPECT_EQ(ProjectOperations::duplicate(project, UUID::make()), std::nullopt);
}

TEST(ProjectOperations, numbersDoNotWrapRound) {
    Project project;
    project.lastVideo = std::numeric_limits<std::int64_t>::max();
    EXPECT_THROW(ProjectOperations::newVideo(project, "", Video::Aspect::square), Problem);
}

TEST(ProjectOperations, quietIsWhereNobodySpeaks) {
    Project project;
    const auto source = UUID::make();
    auto& lines = project.transcripts[source].lines.edit();
    for (const auto& [start, end, gone] : {std::tuple{14.0, 15.0, false},
                                           {11.0, 13.0, false},
                                           {11.5, 12.0, false},
                                           {16.0, 18.0, true},
                                           {0.0, 10.0, false}}) {
        auto& line = lines.emplace_back();
        line.start = start;
        line.end = end;
        if (gone) line.gone = true;
    }
    EXPECT_EQ(ProjectOperations::quiet(project, source, {10, 20}, 1),
              (std::vector<Stretch>{{10, 11}, {13, 14}, {15, 20}}));
    EXPECT_EQ(ProjectOperations::quiet(project, source, {10, 20}, 1.01), (std::vector<Stretch>{{15, 20}}));
    EXPECT_EQ(ProjectOperations::quiet(project, UUID::make(), {1, 2}, 1), (std::vector<Stretch>{{1, 2}}));
}

TEST(ProjectOperations, lanesTurnedOffStayOffOverAnUndo) {
    Project project;
    for (int count = 0; count < 3; ++count) ProjectOperations::newVideo(project, "", Video::Aspect::square);
    auto before = project;
    before.videos.edit()[2].look.emplace().mix.emplace().toggleMute(Lane::video);
    project.videos.edit()[0].look.emplace().mix.emplace().toggleMute(Lane::music);
    project.videos.edit().pop_back();
    const auto mutes = ProjectOperations::mutes(project);
    auto undone = before;
    ProjectOperations::keep(undone, mutes);
    EXPECT_TRUE(undone.videos[0].look->mix->isMuted(Lane::music));
    EXPECT_EQ(undone.videos[1].look, std::nullopt);
    EXPECT_TRUE(undone.videos[2].look->mix->isMuted(Lane::video));
    ProjectOperations::keep(undone, ProjectOperations::mutes(before));
    EXPECT_EQ(undone.videos[0].look->mix->muted, std::nullopt);
}
