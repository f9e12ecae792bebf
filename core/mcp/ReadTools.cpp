#include "core/mcp/ReadTools.h"

#include "core/ai/Brief.h"
#include "core/ai/Reply.h"
#include "core/ai/VideoChange.h"
#include "core/mcp/LoudPlaces.h"
#include "core/mcp/MCPTags.h"
#include "core/mcp/Overview.h"
#include "core/mcp/VideoInWords.h"
#include "core/model/ProjectSummary.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"

#include <unordered_map>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::ReadTools {

namespace {

using Reply::member;

constexpr std::size_t maxHits = 60;
constexpr std::size_t maxClipBytes = 90'000; ///< of one answer: apps stop reading at some 25,000 tokens

/// The pieces in which words are said, by clip and start.
Said::Pieces hits(const std::string& words, const Project& project, const Said& said) {
    std::unordered_map<UUID, std::size_t> order;
    for (const auto& clip : project.clips) order.emplace(clip.id, order.size());
    auto found = said.holding(words);
    std::ranges::stable_sort(found, [&](const auto* one, const auto* other) {
        const auto a = order[one->clip];
        const auto b = order[other->clip];
        return a != b ? a < b : one->start < other->start;
    });
    return found;
}

std::string place(const Bookmark& bookmark, const Project& project, const Said& said) {
    const auto& clips = *project.clips;
    const auto clip = std::ranges::find_if(
        clips, [&](const Clip& one) { return one.source == bookmark.source && one.holds(bookmark.at); });
    auto text = clip == clips.end() ? std::string(", in no clip") : ", in " + clip->tag();
    if (const auto line = MCPTags::line(bookmark.at, bookmark.source, said)) text += ", at " + *line;
    return text;
}

}

MCPResult overview(const Project& project, const Said& said) {
    return {.text = Overview::text(project, said)};
}

MCPResult readClips(const json& arguments, const Project& project, const Said& said) {
    const auto clips = MCPTags::clips(member(arguments, "clips"), project);
    std::string text;
    std::size_t shown = 0;
    for (const auto* clip : clips) {
        const auto block = Brief::lines({clip}, project, said);
        if (shown > 0 && text.size() + block.size() > maxClipBytes) break;
        text += (shown++ ? "\n" : "") + block;
    }
    if (shown < clips.size())
        text += fmt::format("\n… and {} more, from {} on; read_clips them in a call of their own.",
                            clips.size() - shown, clips[shown]->tag());
    return {.text = std::move(text)};
}

MCPResult searchLines(const json& arguments, const Project& project, const Said& said) {
    const auto& query = member(arguments, "query");
    const auto words = query.is_string() ? Text::trimmed(query.get<std::string>()) : "";
    if (words.empty()) throw Problem("Say what words to find.");
    const auto found = hits(words, project, said);
    if (found.empty())
        return {.text = fmt::format("Nothing said holds “{}”.", VideoChange::given(json(words)))};
    std::string text;
    for (std::size_t at = 0; at < std::min(found.size(), maxHits); ++at)
        text += fmt::format("{}{} [{}] {}", at ? "\n" : "", found[at]->tag,
                            ProjectSummary::clock(found[at]->start), Brief::oneLine(found[at]->text));
    if (found.size() > maxHits)
        text += fmt::format("\n… and {} more; ask with more words.", found.size() - maxHits);
    return {.text = std::move(text)};
}

MCPResult readVideo(const json& arguments, const Project& project, const Said& said) {
    const auto& video = MCPTags::video(member(arguments, "video"), project);
    return {.text = VideoInWords::whole(video, said), .looked = video.id};
}

MCPResult readLoudness(const json& arguments, const Project& project, const Said& said,
                       const MCPContext& context) {
    return {.text =
                LoudPlaces::text(LoudPlaces::stretches(arguments, project), project, said, context.loudness)};
}

MCPResult listBookmarks(const Project& project, const Said& said) {
    if (project.bookmarks.empty()) return {.text = "The owner has no bookmarks."};
    std::string text;
    for (const auto& bookmark : project.bookmarks) {
        text +=
            fmt::format("{}{} {} {}", text.empty() ? "" : "\n", bookmark.tag(),
                        Brief::fileName(project.source(bookmark.source)), ProjectSummary::clock(bookmark.at));
        if (bookmark.end) text += " to " + ProjectSummary::clock(*bookmark.end);
        text += place(bookmark, project, said);
        if (bookmark.note && !bookmark.note->empty()) text += ": " + Brief::oneLine(*bookmark.note);
    }
    return {.text = std::move(text)};
}

MCPResult whatChanged(const json& arguments, const Project& project, const Said& said,
                      const MCPContext& context) {
    const auto& video = MCPTags::video(member(arguments, "video"), project);
    const auto tag = video.tag();
    const auto seen = context.seen.find(video.id);
    if (seen == context.seen.end())
        return {
            .text = fmt::format("You have not read {} yet this session. read_video gives all of it.", tag),
            .looked = video.id};
    const auto changes = VideoInWords::changes(seen->second, video, said);
    if (changes.empty())
        return {.text = fmt::format("Nothing in {} changed since you last read it.", tag),
                .looked = video.id};
    return {
        .text = fmt::format("Since you last read {}:\n{}\n\nread_video gives the whole of it as it is now.",
                            tag, changes),
        .looked = video.id};
}

}
