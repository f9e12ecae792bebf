#include "core/model/Tags.h"

#include "platform/base/Numbers.h"

#include <algorithm>

#include <fmt/format.h>

namespace murbo::Tags {
namespace {

/// Lines or notes by their middle, so that a clip finds its own without a walk through hours of them.
template <class Spoken>
class ByMiddle {
public:
    explicit ByMiddle(const List<Spoken>& all) {
        sorted.reserve(all.size());
        for (const auto& one : all) sorted.push_back(&one);
        std::sort(sorted.begin(), sorted.end(), [](auto* a, auto* b) { return a->middle() < b->middle(); });
    }

    /// Those whose middle lies in the clip, by their start; those that start together in transcript order.
    std::vector<const Spoken*> in(const Clip& clip) const {
        const auto before = [](const Spoken* one, double moment) { return one->middle() < moment; };
        const auto from = std::lower_bound(sorted.begin(), sorted.end(), clip.start, before);
        const auto to = std::lower_bound(from, sorted.end(), clip.end, before);
        std::vector<const Spoken*> found(from, to);
        // All are elements of one vector, so their addresses stand in its order.
        std::sort(found.begin(), found.end(),
                  [](auto* a, auto* b) { return a->start != b->start ? a->start < b->start : a < b; });
        return found;
    }

private:
    std::vector<const Spoken*> sorted;
};

}

std::unordered_map<UUID, Named> named(const Transcript& transcript, const std::vector<const Clip*>& clips) {
    const ByMiddle lines(transcript.lines);
    const ByMiddle notes(transcript.notes);
    std::unordered_map<UUID, Named> found;
    found.reserve(transcript.lines.size() + transcript.notes.size());
    for (const auto* clip : clips) {
        const auto tag = clip->tag();
        std::int64_t number = 0;
        for (const auto* line : lines.in(*clip))
            found[line->id] = {fmt::format("{}.{}", tag, Numbers::twoDigits(++number)), clip->id};
        number = 0;
        for (const auto* note : notes.in(*clip))
            found[note->id] = {fmt::format("{}.n{}", tag, ++number), clip->id};
    }
    return found;
}

std::unordered_map<UUID, Named> named(const UUID& source, const Project& project) {
    std::vector<const Clip*> clips;
    for (const auto& clip : project.clips)
        if (clip.source == source) clips.push_back(&clip);
    return named(project.transcript(source), clips);
}

std::unordered_map<UUID, std::string> on(const UUID& source, const Project& project) {
    std::unordered_map<UUID, std::string> tags;
    for (auto& [id, name] : named(source, project)) tags.emplace(id, std::move(name.tag));
    return tags;
}

}
