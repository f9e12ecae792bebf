#include "core/intake/Clips.h"

#include "core/model/edits/ProjectOperations.h"

#include <limits>
#include <unordered_set>

namespace murbo {

namespace {

constexpr double endless = std::numeric_limits<double>::max();

struct MarkWindow {
    double start = 0;
    double end = 0;
};

MarkWindow window(double mark, const ClipReach& reach, double length) {
    const double end = mark + reach.after;
    return {std::max(mark - reach.before, 0.0), end < length ? end : length};
}

/// Both sorted lists as one, sorted.
std::vector<double> joined(const std::vector<double>& one, const std::vector<double>& other) {
    std::vector<double> all = one;
    all.insert(all.end(), other.begin(), other.end());
    std::sort(all.begin(), all.end());
    return all;
}

/// Makes one clip of those that touch. Answers who took in whom, by the absorbed clip's id.
std::map<UUID, UUID> mergeTouching(std::vector<Clip>& clips, const UUID& source) {
    const auto own =
        std::stable_partition(clips.begin(), clips.end(), [&](auto& clip) { return clip.source != source; });
    std::stable_sort(own, clips.end(), [](auto& one, auto& other) { return one.start < other.start; });
    std::map<UUID, UUID> survivors;
    auto last = own;
    for (auto clip = own; clip != clips.end(); ++clip) {
        if (clip == own) continue;
        if (clip->start <= last->end) {
            last->end = std::max(last->end, clip->end);
            last->marks = joined(last->marks, clip->marks);
            last->summary.reset();
            survivors[clip->id] = last->id;
        } else if (++last != clip) {
            *last = std::move(*clip);
        }
    }
    if (own != clips.end()) clips.erase(last + 1, clips.end());
    return survivors;
}

/// Grows clips of one source mark by mark. Merging walks all clips, so it is left out where it would change
/// nothing: while the source's clips are known to stand last, in order and apart.
class Growing {
public:
    Growing(Project& given, const UUID& id) : project(given), source(id) {}

    UUID take(double mark, const MarkWindow& window) {
        const auto& clips = *project.clips;
        const auto met = std::find_if(clips.begin(), clips.end(), [&](auto& clip) {
            return clip.source == source && clip.start <= window.end && window.start <= clip.end;
        });
        if (met != clips.end()) return grow(static_cast<std::size_t>(met - clips.begin()), mark, window);
        settled =
            settled && (clips.empty() || clips.back().source != source || clips.back().start <= window.start);
        return Clips::append(project, source, window.start, window.end, {mark}).id;
    }

private:
    UUID grow(std::size_t index, double mark, const MarkWindow& window) {
        auto& clips = project.clips.edit();
        auto& clip = clips[index];
        const UUID id = clip.id;
        clip.start = std::min(clip.start, window.start);
        clip.end = std::max(clip.end, window.end);
        // A file may hold them in any order; sorted once, each further mark has its place.
        if (ordered.insert(id).second) std::sort(clip.marks.begin(), clip.marks.end());
        clip.marks.insert(std::upper_bound(clip.marks.begin(), clip.marks.end(), mark), mark);
        if (settled && standsApart(clips, index)) return id;
        const auto survivors = mergeTouching(clips, source);
        settled = true;
        // Merging may reorder the list: the clip that now stands at this place is the one reported.
        const UUID now = index < clips.size() ? clips[index].id : id;
        const auto survivor = survivors.find(now);
        return survivor == survivors.end() ? now : survivor->second;
    }

    bool standsApart(const std::vector<Clip>& clips, std::size_t index) const {
        const auto apart = [&](const Clip& one, const Clip& other) {
            return one.source != source || one.end < other.start;
        };
        return (index == 0 || apart(clips[index - 1], clips[index])) &&
               (index + 1 == clips.size() || apart(clips[index], clips[index + 1]));
    }

    Project& project;
    UUID source;
    bool settled = false;
    std::unordered_set<UUID> ordered; ///< the clips whose marks are known to be
};

}

const Clip& Clips::append(Project& project, const UUID& source, double start, double end,
                          std::vector<double> marks) {
    const auto number = ProjectOperations::nextNumber(project.lastClip);
    return project.clips.edit().emplace_back(
        Clip{.number = number, .source = source, .start = start, .end = end, .marks = std::move(marks)});
}

std::vector<UUID> Clips::addAround(Project& project, std::vector<double> marks, const UUID& source,
                                   ClipReach reach) {
    std::erase_if(marks, [](double mark) { return !std::isfinite(mark); });
    std::sort(marks.begin(), marks.end());
    const auto* known = project.source(source);
    Growing growing(project, source);
    std::vector<UUID> touched;
    std::unordered_set<UUID> seen;
    for (const double mark : marks) {
        const auto range = window(mark, reach, known ? known->length : endless);
        if (!(range.start < range.end)) continue;
        const UUID id = growing.take(mark, range);
        if (seen.insert(id).second) touched.push_back(id);
    }
    return touched;
}

}
