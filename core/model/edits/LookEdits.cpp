#include "core/model/edits/LookEdits.h"

#include "core/model/ShownMoments.h"
#include "core/model/Times.h"
#include "core/model/VideoTime.h"

#include <algorithm>

namespace murbo::LookEdits {
namespace {

constexpr double shortestOverlay = 0.2;

template <class Record>
std::optional<std::size_t> index(const List<Record>& list, const UUID& id) {
    const auto found = std::ranges::find(list, id, &Record::id);
    if (found == list.end()) return {};
    return static_cast<std::size_t>(found - list.begin());
}

/// Ties a part to the moment of the footage that is on at a time. Whether there is one.
template <class Record>
bool tie(Record& part, const Video& video, double time) {
    const auto place = VideoTime::locate(time, video.cuts);
    if (!place) return false;
    part.id = UUID::make();
    part.source = video.cuts[place->cut].source;
    part.at = place->at;
    return true;
}

template <class Record>
UUID putAfter(List<Record>& list, std::size_t at, const Record& part) {
    auto& records = list.edit();
    records.insert(records.begin() + static_cast<std::ptrdiff_t>(at) + 1, part);
    return part.id;
}

std::optional<UUID> splitCue(Video& video, List<SoundCue>& cues, std::size_t at, double end, double time) {
    const auto whole = cues[at];
    const auto start = ShownMoments(video.cuts).on(whole.source, whole.at);
    if (!start) return {};
    const double left = time - *start;
    const double right =
        (whole.length ? *start + *whole.length : std::max(end, *start + unknownSound)) - time;
    auto part = whole;
    if (left < Times::shortestCut || right < Times::shortestCut || !tie(part, video, time)) return {};
    part.skip = whole.skip.value_or(0) + left;
    if (whole.length) part.length = right;
    cues.edit()[at].length = left;
    return putAfter(cues, at, part);
}

}

std::optional<UUID> splitOverlay(Video& video, const UUID& overlay, double time) {
    const auto at = video.look ? index(video.look->overlays, overlay) : std::nullopt;
    if (!at) return {};
    auto& overlays = video.look->overlays;
    auto part = overlays[*at];
    const auto start = ShownMoments(video.cuts).on(part.source, part.at);
    if (!start) return {};
    const double left = time - *start;
    const double right = part.length - left;
    if (left < shortestOverlay || right < shortestOverlay || !tie(part, video, time)) return {};
    part.length = right;
    overlays.edit()[*at].length = left;
    return putAfter(overlays, *at, part);
}

std::optional<UUID> splitSound(Video& video, const UUID& sound, double time) {
    if (!video.look) return {};
    auto& look = *video.look;
    if (const auto at = index(look.sounds, sound)) return splitCue(video, look.sounds, *at, 0, time);
    if (const auto at = index(look.music, sound))
        return splitCue(video, look.music, *at, video.length(), time);
    return {};
}

}
