#include "core/model/edits/VideoEdits.h"

#include "core/model/Times.h"
#include "core/model/VideoTime.h"

#include <algorithm>

namespace murbo::VideoEdits {
namespace {

std::size_t clamped(std::ptrdiff_t at, std::size_t count) {
    return static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(at, 0, static_cast<std::ptrdiff_t>(count)));
}

std::vector<Cut>::iterator iteratorAt(std::vector<Cut>& cuts, std::size_t at) {
    return cuts.begin() + static_cast<std::ptrdiff_t>(at);
}

/// Changes the cut with that id, if there is one.
template <class Change>
void change(Video& video, const UUID& cut, Change change) {
    if (const auto at = index(video, cut)) change(video.cuts.edit()[*at]);
}

Cut piece(const Cut& cut, double from, double to) {
    Cut made = cut;
    made.id = UUID::make();
    made.start = from;
    made.end = to;
    return made;
}

/// What is left of a cut between the stretches, pieces shorter than `shortest` dropped.
std::vector<Cut> leftOver(const Cut& cut, const std::vector<Stretch>& sorted, double shortest) {
    std::vector<Cut> pieces;
    double from = cut.start;
    for (const auto& stretch : sorted) {
        if (stretch.to <= from || stretch.from >= cut.end) continue;
        if (stretch.from - from >= shortest) pieces.push_back(piece(cut, from, stretch.from));
        from = stretch.to;
    }
    if (cut.end - from >= shortest) pieces.push_back(piece(cut, from, cut.end));
    return pieces;
}

double lengthOf(const std::vector<Cut>& cuts) {
    double length = 0;
    for (const auto& cut : cuts) length += cut.length();
    return length;
}

}

std::optional<std::size_t> index(const Video& video, const UUID& cut) {
    const auto& cuts = *video.cuts;
    const auto found = std::find_if(cuts.begin(), cuts.end(), [&](const Cut& one) { return one.id == cut; });
    if (found == cuts.end()) return std::nullopt;
    return static_cast<std::size_t>(found - cuts.begin());
}

std::optional<std::size_t> indexAt(const Video& video, double time) {
    const auto starts = VideoTime::starts(video.cuts);
    for (std::size_t at = 0; at < starts.size(); ++at)
        if (starts[at] <= time && time < starts[at] + video.cuts[at].length()) return at;
    return std::nullopt;
}

std::size_t place(const Video& video, double time) {
    const auto starts = VideoTime::starts(video.cuts);
    std::size_t at = 0;
    while (at < starts.size() && starts[at] + video.cuts[at].length() * 0.5 <= time) ++at;
    return at;
}

std::optional<double> start(const Video& video, const UUID& cut) {
    const auto at = index(video, cut);
    if (!at) return std::nullopt;
    return VideoTime::starts(video.cuts)[*at];
}

std::vector<double> edits(const Video& video) {
    auto edits = VideoTime::starts(video.cuts);
    edits.push_back(video.length());
    return edits;
}

UUID insert(Video& video, Cut cut, std::optional<std::ptrdiff_t> at) {
    const auto id = cut.id;
    auto& cuts = video.cuts.edit();
    cuts.insert(iteratorAt(cuts, at ? clamped(*at, cuts.size()) : cuts.size()), std::move(cut));
    return id;
}

UUID insertAt(Video& video, Cut cut, double time) {
    const auto place = VideoTime::locate(time, video.cuts);
    if (!place || time >= video.length() - Times::samePlace) return insert(video, std::move(cut));
    const auto position = static_cast<std::ptrdiff_t>(place->cut);
    const auto starts = VideoTime::starts(video.cuts);
    if (std::abs(time - starts[place->cut]) <= Times::samePlace)
        return insert(video, std::move(cut), position);
    split(video, video.cuts[place->cut].id, place->at);
    return insert(video, std::move(cut), position + 1);
}

std::optional<UUID> split(Video& video, const UUID& cut, double sourceTime) {
    const auto at = index(video, cut);
    if (!at) return std::nullopt;
    const auto& whole = video.cuts[*at];
    if (sourceTime - whole.start < Times::shortestCut || whole.end - sourceTime < Times::shortestCut)
        return std::nullopt;
    auto right = piece(whole, sourceTime, whole.end);
    const auto id = right.id;
    video.cuts.edit()[*at].end = sourceTime;
    insert(video, std::move(right), static_cast<std::ptrdiff_t>(*at) + 1);
    return id;
}

std::optional<UUID> splitAt(Video& video, double time) {
    const auto place = VideoTime::locate(time, video.cuts);
    if (!place) return std::nullopt;
    return split(video, video.cuts[place->cut].id, place->at);
}

void trimStart(Video& video, const UUID& cut, double to) {
    change(video, cut,
           [&](Cut& one) { one.start = std::max(0.0, std::min(to, one.end - Times::shortestCut)); });
}

void trimEnd(Video& video, const UUID& cut, double to, double sourceLength) {
    change(video, cut,
           [&](Cut& one) { one.end = std::min(sourceLength, std::max(to, one.start + Times::shortestCut)); });
}

void slip(Video& video, const UUID& cut, double toStart, double sourceLength) {
    change(video, cut, [&](Cut& one) {
        const double length = one.length();
        one.start = std::min(std::max(toStart, 0.0), std::max(sourceLength - length, 0.0));
        one.end = one.start + length;
    });
}

void roll(Video& video, const UUID& cut, double to, double sourceLength) {
    const auto at = index(video, cut);
    if (!at || *at + 1 >= video.cuts.size()) return;
    auto& cuts = video.cuts.edit();
    auto& left = cuts[*at];
    auto& right = cuts[*at + 1];
    const double nextLength = right.end - right.start;
    // What is generated has as much before its start as one likes, and starts where it did.
    const double low =
        std::max(left.start + Times::shortestCut, right.generator ? 0 : left.end - right.start);
    const double high = std::min(sourceLength, left.end + nextLength - Times::shortestCut);
    const double by = std::clamp(to, low, std::max(low, high)) - left.end;
    left.end += by;
    (right.generator ? right.end : right.start) += right.generator ? -by : by;
}

void move(Video& video, const UUID& cut, std::ptrdiff_t to) {
    const auto from = index(video, cut);
    if (!from) return;
    Cut moved = video.cuts[*from];
    auto& cuts = video.cuts.edit();
    cuts.erase(iteratorAt(cuts, *from));
    insert(video, std::move(moved), static_cast<std::ptrdiff_t>(*from) < to ? to - 1 : to);
}

void remove(Video& video, const UUID& cut) {
    if (!index(video, cut)) return;
    std::erase_if(video.cuts.edit(), [id = cut](const Cut& one) { return one.id == id; });
}

double takeOut(Video& video, std::vector<Stretch> stretches, const UUID& cut, double shortest) {
    const auto at = index(video, cut);
    if (!at) return 0;
    std::stable_sort(stretches.begin(), stretches.end(), [](auto& a, auto& b) { return a.from < b.from; });
    const auto pieces = leftOver(video.cuts[*at], stretches, shortest);
    if (pieces.empty()) return 0;
    const double removed = video.cuts[*at].length() - lengthOf(pieces);
    auto& cuts = video.cuts.edit();
    cuts.insert(cuts.erase(iteratorAt(cuts, *at)), pieces.begin(), pieces.end());
    return removed;
}

void toggleMute(Video& video, const std::vector<UUID>& named) {
    const auto isNamed = [&](const Cut& cut) {
        return std::find(named.begin(), named.end(), cut.id) != named.end();
    };
    const bool mute = std::any_of(video.cuts.begin(), video.cuts.end(),
                                  [&](const Cut& cut) { return isNamed(cut) && !cut.muted.value_or(false); });
    for (auto& cut : video.cuts.edit()) {
        if (!isNamed(cut)) continue;
        cut.muted = mute ? std::optional(true) : std::nullopt;
    }
}

}
