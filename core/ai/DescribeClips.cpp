#include "core/ai/DescribeClips.h"

#include "core/ai/Ideas.h"
#include "core/ai/LastRuns.h"
#include "core/ai/Prompts.h"
#include "core/ai/Reply.h"
#include "platform/base/Text.h"

#include <algorithm>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::DescribeClips {

namespace {

constexpr std::size_t longestBatch = 20;       // clips
constexpr double largestBatch = 30'000;        // tokens, as estimated by a clip's length
constexpr double tokensPerSecond = 15;         // of a clip
constexpr std::int64_t tokensPerSummary = 200; // of a reply

constexpr const char* task =
    "You describe clips of footage (a stream recording, or clips from a camera or a phone) for someone who "
    "will cut "
    "videos from them.";
constexpr const char* replyForm = R"(Reply with JSON only, one entry per clip:
{"clips": [{
  "clip": "C14",
  "title": "at most 8 words, English, the specific thing that happens, sentence case, no commas",
  "summary": "2 to 3 English sentences: what leads up to it, what happens, how it lands",
  "energy": "calm | tense | panic | hype",
  "kind": "fail | win | discovery | banter | rant | wholesome | story | scenery",
  "key_line": "tag of the single most quotable line",
  "unsure": "one short sentence on what you could not make out, or empty"
}]})";

/// The project's clips that are not among these and were not rejected.
Brief::Clips others(const Brief::Clips& clips, const Project& project) {
    Brief::Clips found;
    for (const auto& clip : project.clips)
        if (clip.rating != -1 &&
            std::none_of(clips.begin(), clips.end(), [&](const Clip* given) { return given->id == clip.id; }))
            found.push_back(&clip);
    return found;
}

std::optional<std::string> trimmed(const nlohmann::json& entry, const char* name) {
    const auto text = Ideas::text(entry, name);
    return text ? std::optional(Text::trimmedOfBlanks(*text)) : std::nullopt;
}

std::optional<UUID> keyLine(const nlohmann::json& entry, const Clip& clip, const Said& said) {
    const auto* piece = said.piece(Reply::member(entry, "key_line"));
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

std::vector<Brief::Clips> batches(const Brief::Clips& clips) {
    std::vector<Brief::Clips> found;
    double sum = 0;
    for (const auto* clip : clips) {
        const double tokens = clip->length() * tokensPerSecond;
        if (found.empty() || found.back().size() == longestBatch || sum + tokens > largestBatch) {
            found.emplace_back();
            sum = 0;
        }
        found.back().push_back(clip);
        sum += tokens;
    }
    return found;
}

Ask ask(const Brief::Clips& clips, const Project& project, const Said& said) {
    std::string words;
    if (const auto notes = Brief::notes(clips, project); !notes.empty())
        words += "The owner's notes on the footage:\n" + notes + "\n\n";
    if (const auto rest = others(clips, project); !rest.empty())
        words +=
            "The rest of the project, for background only:\n" + Brief::digest(rest, project, said) + "\n\n";
    words += "Describe these:\n\n" + Brief::lines(clips, project, said);
    return {Ask::Model::cheap,
            {{Ask::Message::Role::system,
              fmt::format("{}\n\n{}\n\n{}", task, Prompts::transcriptWarning, replyForm)},
             {Ask::Message::Role::user, std::move(words)}},
            12'000,
            4'000};
}

double estimate(const Price& price, const Brief::Clips& clips, const Project& project, const Said& said) {
    double sum = 0;
    const auto all = batches(clips);
    for (const auto& batch : all) {
        const auto request = ask(batch, project, said);
        const auto summaries = static_cast<std::int64_t>(clips.size()) * tokensPerSummary;
        sum += price.estimate(request.text(),
                              request.thinking + summaries / static_cast<std::int64_t>(all.size()));
    }
    return sum;
}

Summaries read(std::string_view reply, const Brief::Clips& clips, const Said& said) {
    const auto object = Reply::object(reply);
    return summaries(Reply::member(object, "clips"), clips, said);
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
