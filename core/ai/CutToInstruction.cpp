#include "core/ai/CutToInstruction.h"

#include "core/ai/Ideas.h"
#include "core/ai/Prompts.h"
#include "core/ai/Reply.h"

#include <algorithm>
#include <set>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::CutToInstruction {

namespace {

constexpr const char* cutsOne = "You cut one video from someone's footage, following their instruction.";
constexpr const char* revisesOne =
    "You revise one video cut from someone's footage, following their instruction. You are shown its cuts as "
    "they "
    "are now. Change only what the instruction asks for and return the whole cut list, with the cuts you "
    "leave "
    "alone exactly as they were.";
constexpr const char* replyForm =
    "Choose the cuts that tell the moment well: enough lead-in to make sense, the moment itself, and a beat "
    "of "
    "reaction. Cuts play in the order listed. Each cut is a run of consecutive lines (or notes) inside one "
    "clip. A "
    "person will trim it after you. When you have read what you need, reply with JSON only:\n"
    R"({"title": "working title, English", "cuts": [{"from": "C03.07", "to": "C03.11", "role": "setup | build | payoff | reaction | button"}], "note": "one sentence: what you picked, or why you could not find it"})"
    "\n\nIf nothing in the footage matches what was asked for, return no cuts and say so in the note.";

/// The clips that a video plays, in the project's order.
std::vector<UUID> played(const Video& video, const Project& project) {
    const Said said(project);
    std::set<UUID> found;
    for (const auto& cut : video.cuts)
        if (const auto ends = said.ends(cut)) found.insert(ends->first->clip);
    std::vector<UUID> clips;
    for (const auto& clip : project.clips)
        if (found.contains(clip.id)) clips.push_back(clip.id);
    return clips;
}

std::vector<UUID> joined(std::vector<UUID> scope, const std::vector<UUID>& given) {
    for (const auto& clip : given)
        if (std::find(scope.begin(), scope.end(), clip) == scope.end()) scope.push_back(clip);
    return scope;
}

}

std::string instructions(Video::Aspect aspect, bool revising) {
    return fmt::format("{} {}\n\n{}\n\n{}", revising ? revisesOne : cutsOne, Prompts::aspectSentence(aspect),
                       Prompts::transcriptWarning, replyForm);
}

Reading reading(const std::string& instruction, const std::vector<UUID>& scope,
                const std::vector<UUID>& given, Video::Aspect aspect, const Project& project) {
    return Reading({.system = instructions(aspect, false),
                    .words = "Instruction: " + instruction,
                    .scope = scope,
                    .given = given},
                   project);
}

Reading revising(const Video& video, const std::string& instruction, const std::vector<UUID>& scope,
                 const Project& project) {
    const auto given = played(video, project);
    return Reading({.system = instructions(video.aspect, true),
                    .words = fmt::format("Instruction: {}\n\nThe video now, “{}”, {:.1f} s:\n{}", instruction,
                                         video.title, video.length(), Brief::cuts(video, Said(project))),
                    .scope = joined(scope, given),
                    .given = given},
                   project);
}

Answer answer(const nlohmann::json& object, const Reading& from, const Video* revised) {
    Answer read;
    read.cuts = from.cuts(Reply::member(object, "cuts"));
    if (revised && !read.cuts.empty())
        read.cuts = from.said().keepingGenerators(
            from.said().keepingTrims(std::move(read.cuts), revised->cuts), revised->cuts);
    read.title = Ideas::text(object, "title").value_or(revised ? revised->title : "Untitled Video");
    read.note =
        Ideas::text(object, "note").value_or(read.cuts.empty() ? "Nothing in the footage matched that." : "");
    return read;
}

}
