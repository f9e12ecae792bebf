#include "core/mcp/ChangeTools.h"

#include "core/ai/Brief.h"
#include "core/ai/CaptionsByTag.h"
#include "core/ai/DescribeClips.h"
#include "core/ai/Ideas.h"
#include "core/ai/LastRuns.h"
#include "core/ai/MadeVideo.h"
#include "core/ai/Reply.h"
#include "core/ai/VideoChange.h"
#include "core/mcp/MCPTags.h"
#include "core/model/ProjectSummary.h"
#include "platform/base/Problem.h"
#include "platform/base/RawText.h"
#include "platform/base/Text.h"

#include <unordered_map>

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

namespace murbo::ChangeTools {

namespace {

using Tags = std::vector<std::string>;
using Reply::member;

Run run() {
    return LastRuns::now(Run::By::mcp);
}

std::string oneOrMore(const char* one, const char* more, std::size_t count) {
    return count == 1 ? one : more;
}

/// The tags of the clips that entries speak of, those that are texts.
json clipTags(const json& entries) {
    auto tags = json::array();
    if (!entries.is_array()) return tags;
    for (const auto& entry : entries)
        if (const auto& tag = member(entry, "clip"); tag.is_string()) tags.push_back(tag);
    return tags;
}

struct Correction {
    const Said::Piece* line;
    std::string text;
};

std::vector<Correction> corrections(const json& entries, const Said& said, Tags& leftOut) {
    std::vector<Correction> found;
    if (!entries.is_array()) return found;
    for (const auto& entry : entries) {
        const auto* piece = said.piece(member(entry, "line"));
        const auto text = Ideas::text(entry, "text");
        if (piece && !piece->note && text) {
            found.push_back({piece, Text::trimmed(*text)});
        } else {
            leftOut.push_back(VideoChange::given(entry, "line") + ": not a line that is there, or no words");
        }
    }
    return found;
}

/// The cuts that hold up, in order; the others are left out.
std::vector<Cut> cutsOf(const json& holder, const Said& said, Tags& leftOut) {
    std::vector<Cut> found;
    const auto& entries = member(holder, "cuts");
    if (!entries.is_array()) return found;
    for (const auto& entry : entries) {
        auto made = said.cuts(json::array({entry}));
        std::ranges::move(made, std::back_inserter(found));
        if (made.empty())
            leftOut.push_back(fmt::format("{} to {}: not lines that are there, in order, in one clip",
                                          VideoChange::given(entry, "from"),
                                          VideoChange::given(entry, "to")));
    }
    return found;
}

/// Says which cuts of a video no list of lines can have kept: those in which nothing is said.
void leaveOutSilent(const Video& video, const Said& said, Tags& leftOut) {
    for (std::size_t at = 0; at < video.cuts.size(); ++at)
        if (const auto& cut = video.cuts[at]; !cut.generator && !said.ends(cut))
            leftOut.push_back(
                fmt::format("cut {} as it was, {:.1f} s: nothing is said in it, so no line names it", at + 1,
                            cut.length()));
}

std::optional<Idea> idea(const json& entry, const Said& said, Tags& leftOut) {
    auto title = Ideas::text(entry, "title").value_or("Untitled");
    auto cuts = cutsOf(entry, said, leftOut);
    if (cuts.empty()) {
        leftOut.push_back(VideoChange::given(title) + ": no cut that holds up");
        return std::nullopt;
    }
    return Idea{.title = std::move(title),
                .hook = Ideas::text(entry, "hook").value_or(""),
                .why = Ideas::text(entry, "why").value_or(""),
                .format = Ideas::text(entry, "format"),
                .cuts = std::move(cuts),
                .run = run()};
}

Video::Aspect aspect(const json& value) {
    if (!value.is_string()) return Video::Aspect::vertical;
    return fromRawText<Video::Aspect>(Text::trimmed(value.get<std::string>()))
        .value_or(Video::Aspect::vertical);
}

std::string joined(const Tags& tags) {
    return fmt::format("{}", fmt::join(tags, ", "));
}

}

MCPResult describeClips(const json& arguments, Project& project, const Said& said) {
    constexpr const char* nothing = "Nothing could be read: each entry needs a clip and a title.";
    const auto& entries = member(arguments, "clips");
    const auto wanted = clipTags(entries);
    if (wanted.empty()) throw Problem(nothing);
    const auto clips = MCPTags::clips(wanted, project);
    const auto summaries = DescribeClips::summaries(entries, clips, said);
    if (summaries.empty()) throw Problem(nothing);
    Tags done;
    Tags leftOut;
    for (const auto* clip : clips)
        summaries.contains(clip->id) ? done.push_back(clip->tag())
                                     : leftOut.push_back(clip->tag() + ": it needs a title and a summary");
    DescribeClips::apply(summaries, project, run());
    return {.text = fmt::format("Described {}.{}", joined(done), VideoChange::leftOut(leftOut)),
            .step = oneOrMore("Describe Clip", "Describe Clips", done.size())};
}

MCPResult fixLines(const json& arguments, Project& project, const Said& said) {
    Tags leftOut;
    const auto found = corrections(member(arguments, "lines"), said, leftOut);
    if (found.empty())
        throw Problem("No line could be fixed: each needs the tag of a line that is there and its words.");
    std::map<UUID, std::unordered_map<UUID, std::string>> texts; // by source, by line
    std::map<UUID, Clip*> clips;
    Tags tags;
    for (const auto& [line, text] : found) {
        if (!texts[line->source].insert_or_assign(line->id, text).second) continue;
        tags.push_back(line->tag);
        clips[line->clip] = nullptr;
    }
    for (const auto& [source, lines] : texts)
        for (auto& line : project.transcripts.at(source).lines.edit())
            if (const auto text = lines.find(line.id); text != lines.end()) line.text = text->second;
    for (auto& clip : project.clips.edit())
        if (clips.contains(clip.id)) LastRuns::note(clip.runs, Kit::ID::fixWords, run());
    return {.text = fmt::format("Fixed {}.{}", joined(tags), VideoChange::leftOut(leftOut)),
            .step = oneOrMore("Fix Line", "Fix Lines", tags.size())};
}

MCPResult proposeIdeas(const json& arguments, Project& project, const Said& said) {
    std::vector<Idea> ideas;
    Tags titles;
    Tags leftOut;
    if (const auto& entries = member(arguments, "ideas"); entries.is_array())
        for (const auto& entry : entries)
            if (auto made = idea(entry, said, leftOut)) {
                titles.push_back(Brief::oneLine(made->title));
                ideas.push_back(std::move(*made));
            }
    if (ideas.empty())
        throw Problem(
            "No idea had a cut that holds up: every cut needs a from and a to, lines that are there, in one "
            "clip.");
    if (!project.ideas) project.ideas.emplace();
    auto& all = project.ideas->edit();
    std::ranges::move(ideas, std::back_inserter(all));
    return {
        .text = fmt::format("The owner sees {} in Project ▸ Ideas: {}.{}", titles.size() == 1 ? "it" : "them",
                            joined(titles), VideoChange::leftOut(leftOut)),
        .step = oneOrMore("Propose Idea", "Propose Ideas", titles.size())};
}

MCPResult makeVideo(const json& arguments, Project& project, const Said& said) {
    Tags leftOut;
    auto cuts = cutsOf(arguments, said, leftOut);
    if (cuts.empty())
        throw Problem("No cut holds up: each needs a from and a to, lines that are there, in one clip.");
    const auto title = Ideas::text(arguments, "title").value_or("Untitled Video");
    const auto id = MadeVideo::add(project, title, aspect(member(arguments, "aspect")), std::move(cuts),
                                   Kit::ID::cutToInstruction, run());
    const auto& video = project.videos.back();
    return {.text = fmt::format("{} “{}”, {}, {} cuts.{}", video.tag(), Brief::oneLine(video.title),
                                ProjectSummary::clock(video.length()), video.cuts.size(),
                                VideoChange::leftOut(leftOut)),
            .step = "Make Video",
            .looked = id};
}

MCPResult setCuts(const json& arguments, Project& project, const Said& said) {
    const auto video = MCPTags::video(member(arguments, "video"), project);
    Tags leftOut;
    auto cuts = said.keepingTrims(cutsOf(arguments, said, leftOut), video.cuts);
    if (cuts.empty()) throw Problem(fmt::format("No cut holds up, so {} is left as it was.", video.tag()));
    cuts = said.keepingGenerators(std::move(cuts), video.cuts);
    leaveOutSilent(video, said, leftOut);
    std::string text;
    VideoChange::apply(project, video.id, video.tag(), [&](Video& changed) {
        changed.cuts = std::move(cuts);
        LastRuns::note(changed.runs, Kit::ID::reviseCuts, run());
        text = fmt::format("{} now has {} cuts, {}.{}", changed.tag(), changed.cuts.size(),
                           ProjectSummary::clock(changed.length()), VideoChange::leftOut(leftOut));
    });
    return {.text = std::move(text), .step = "Revise Cuts", .looked = video.id};
}

MCPResult renameVideo(const json& arguments, Project& project) {
    const auto video = MCPTags::video(member(arguments, "video"), project);
    const auto title = Ideas::text(arguments, "title");
    if (!title) throw Problem("Say the new title.");
    VideoChange::apply(project, video.id, video.tag(), [&](Video& changed) { changed.title = *title; });
    return {.text = fmt::format("{} is “{}”.", video.tag(), Brief::oneLine(*title)),
            .step = "Rename Video",
            .looked = video.id};
}

MCPResult setShots(const json& arguments, Project& project, const Said& said, const MCPContext& context) {
    const auto id = MCPTags::video(member(arguments, "video"), project).id;
    auto text = ShotsByTag::replace(project, id, member(arguments, "shots"), said, context.layouts, run());
    return {.text = std::move(text), .step = "Frame by Claude", .looked = id};
}

MCPResult setCaptions(const json& arguments, Project& project, const Said& said) {
    const auto id = MCPTags::video(member(arguments, "video"), project).id;
    const CaptionsByTag::Wishes wishes{member(arguments, "big"), member(arguments, "hidden"),
                                       member(arguments, "breaks")};
    auto text = CaptionsByTag::replace(project, id, wishes, said, run());
    return {.text = std::move(text), .step = "Captions by Claude", .looked = id};
}

MCPResult setSounds(const json& arguments, Project& project, const Said& said, const MCPContext& context) {
    const auto id = MCPTags::video(member(arguments, "video"), project).id;
    auto text = SoundsByTag::replace(project, id, member(arguments, "sounds"), said, context.sounds, run());
    return {.text = std::move(text), .step = "Sounds by Claude", .looked = id};
}

}
