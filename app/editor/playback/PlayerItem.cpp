#include "app/editor/playback/PlayerItem.h"

#include "core/model/HeardOptions.h"
#include "core/model/Project.h"
#include "platform/base/Problem.h"
#include "platform/media/MediaFile.h"

#include <algorithm>

namespace murbo {
namespace {

/// A source as a video of one cut that shows it whole.
Video whole(const Source& source) {
    Video video;
    video.aspect = Video::Aspect::horizontal;
    video.cuts.edit().push_back({.source = source.id, .start = 0, .end = std::max(source.length, 0.0)});
    video.look.emplace();
    video.look->captions.on = false;
    video.look->shots.edit().push_back(
        {.source = source.id, .at = 0, .layout = Shot::Layout::content, .zoom = 1});
    return video;
}

/// The size of a file's picture; that of a common recording where it has none.
Size pictureSize(const std::filesystem::path& file) {
    try {
        if (const auto picture = MediaFile::facts(file).picture) return picture->size;
    } catch (const Problem&) {
        // It plays black.
    }
    return Plan::frameSize(Video::Aspect::horizontal);
}

bool sameStretch(const VideoComposition::Segment& one, const VideoComposition::Segment& other) {
    return one.start == other.start && one.length == other.length && one.from == other.from &&
           one.file == other.file && one.source == other.source;
}

}

PlayerItem PlayerItem::video(const Video& video, const Project& project, const std::set<UUID>& missing,
                             const std::string& fonts, const std::optional<std::filesystem::path>& package,
                             const std::set<Lane>& soloed) {
    const auto sounding = heard(video, {.soloed = soloed, .keepingTracks = true});
    PlayerItem item;
    item.composition = VideoComposition::make(sounding, project, missing, fonts, package, std::nullopt);
    item.sound = SoundMix::tracks(sounding, *item.composition.box->plan(), missing);
    return item;
}

PlayerItem PlayerItem::footage(const Source& source) {
    Project project;
    project.sources.edit().push_back(source);
    const auto video = whole(source);
    PlayerItem item;
    item.composition = VideoComposition::make(video, project, {}, "", std::nullopt, std::nullopt);
    auto plan = *item.composition.box->plan();
    plan.frame = pictureSize(source.path);
    plan.framings.clear();
    item.sound = SoundMix::tracks(video, plan);
    item.composition.box->replace(std::move(plan));
    return item;
}

bool PlayerItem::hasPictureOf(const PlayerItem& other) const {
    return composition.rate == other.composition.rate &&
           std::ranges::equal(composition.segments, other.composition.segments, sameStretch);
}

}
