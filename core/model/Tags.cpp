#include "core/model/Tags.h"

#include "core/model/ByMiddle.h"
#include "platform/base/Numbers.h"

#include <fmt/format.h>

namespace murbo::Tags {

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
