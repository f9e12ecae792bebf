#include "core/ai/DescribeClips.h"

#include "core/ai/Ideas.h"
#include "core/ai/LastRuns.h"
#include "platform/base/Text.h"

#include <nlohmann/json.hpp>

namespace murbo::DescribeClips {

namespace {

std::optional<std::string> trimmed(const nlohmann::json& entry, const char* name) {
    const auto text = Ideas::text(entry, name);
    return text ? std::optional(Text::trimmedOfBlanks(*text)) : std::nullopt;
}

std::optional<UUID> keyLine(const nlohmann::json& entry, const Clip& clip, const Said& said) {
    const auto* piece = entry.contains("key_line") ? said.piece(entry["key_line"]) : nullptr;
    return piece && piece->clip == clip.id ? std::optional(piece->id) : std::nullopt;
}

std::optional<Clip::Summary> summary(const nlohmann::json& entry, const Clip& clip, const Said& said) {
    auto title = trimmed(entry, "title");
    auto words = trimmed(entry, "summary");
    if (!title || !words) return std::nullopt;
    return Clip::Summary{.title = std::move(*title),
                         .summary = std::move(*words),
                         .energy = Ideas::text(entry, "energy"),
                         .kind = Ideas::text(entry, "kind"),
                         .unsure = Ideas::text(entry, "unsure"),
                         .keyLine = keyLine(entry, clip, said)};
}

}

Summaries summaries(const nlohmann::json& entries, const std::vector<const Clip*>& clips, const Said& said) {
    Summaries found;
    if (!entries.is_array()) return found;
    std::map<std::string, const Clip*> byTag;
    for (const auto* clip : clips) byTag.emplace(Text::lowercased(clip->tag()), clip);
    for (const auto& entry : entries) {
        const auto tag = Ideas::text(entry, "clip");
        const auto clip = tag ? byTag.find(Text::lowercased(Text::trimmed(*tag))) : byTag.end();
        if (clip == byTag.end()) continue;
        if (auto read = summary(entry, *clip->second, said)) found[clip->second->id] = std::move(*read);
    }
    return found;
}

void apply(const Summaries& summaries, Project& project, const Run& run) {
    for (auto& clip : project.clips.edit()) {
        const auto found = summaries.find(clip.id);
        if (found == summaries.end()) continue;
        clip.summary = found->second;
        LastRuns::note(clip.runs, Kit::ID::describeClips, run);
    }
}

}
