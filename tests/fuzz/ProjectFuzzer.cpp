#include "core/model/CaptionPresets.h"
#include "core/model/HeardOptions.h"
#include "core/model/Muted.h"
#include "core/model/ProjectSummary.h"
#include "core/model/edits/PlayerChange.h"
#include "core/model/edits/ProjectOperations.h"
#include "core/model/edits/VideoEdits.h"
#include "tests/fuzz/RoundTrip.h"

using namespace murbo;

namespace {

/// The verbs must stand whatever numbers a file holds.
void edit(Video& video) {
    if (video.cuts.empty()) return;
    const auto id = video.cuts.front().id;
    VideoEdits::insertAt(video, Cut{}, 1);
    VideoEdits::splitAt(video, video.length() * 0.5);
    VideoEdits::slip(video, id, 3, 10);
    VideoEdits::trimStart(video, id, 1);
    VideoEdits::trimEnd(video, id, 1, 10);
    VideoEdits::takeOut(video, {{0, 1}, {2, 3}}, id, 0.5);
    VideoEdits::move(video, id, 1);
    VideoEdits::toggleMute(video, {id});
    VideoEdits::remove(video, id);
}

void useVideo(Project& project, const Video& video) {
    CaptionPresets::style(project, video);
    require(playerChange(video, &video) == PlayerChange::redraw, "a video differs from itself");
    auto edited = video;
    edit(edited);
    const auto sounding = heard(edited, {.includingMutedRows = true, .includingMutedBlocks = true});
    require(hasMuted(sounding) == Muted{}, "something muted is left");
    require(ProjectOperations::duplicate(project, video.id).has_value(), "a video has no copy");
}

void use(Project& project) {
    ProjectSummary::text(project, {});
    ProjectOperations::keep(project, ProjectOperations::mutes(project));
    const auto videos = project.videos;
    for (std::size_t at = 0; at < std::min<std::size_t>(videos.size(), 5); ++at)
        useVideo(project, videos[at]);
}

}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    if (auto project = roundTrip<Project>(bytes, size)) use(*project);
    return 0;
}
