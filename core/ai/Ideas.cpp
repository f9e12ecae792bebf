#include "core/ai/Ideas.h"

#include "core/ai/Prompts.h"
#include "core/ai/Reply.h"
#include "platform/base/Text.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo {
namespace {

constexpr std::size_t longestText = 20'000; // bytes
constexpr const char* replyForm =
    "When you have read what you need, reply with JSON only:\n"
    R"({"ideas": [{
  "title": "working title, English",
  "hook": "what the first 2 seconds show or say",
  "format": "single moment | montage | setup and payoff | running gag | story",
  "why": "one sentence on why this would work",
  "cuts": [{"from": "C06.02", "to": "C06.05", "role": "setup | build | payoff | reaction | button"}]
}]})"
    "\n\nGive 0 to 3 ideas, only ones you would actually post. One clip does not have to mean one video: "
    "combine "
    "moments from different clips when they belong together, and leave weak clips unused. Cuts play in the "
    "order "
    "listed and need not follow the footage's order. Each cut is a run of consecutive lines (or notes) "
    "inside one "
    "clip. The cut list is a rough edit that a person will trim.";

}

std::optional<std::string> Ideas::text(const nlohmann::json& value) {
    if (!value.is_string()) return std::nullopt;
    const auto& words = value.get_ref<const std::string&>();
    if (Text::trimmed(words).empty()) return std::nullopt;
    return Text::beginning(words, longestText);
}

std::optional<std::string> Ideas::text(const nlohmann::json& object, const char* name) {
    if (!object.is_object()) return std::nullopt;
    const auto found = object.find(name);
    return found == object.end() ? std::nullopt : text(*found);
}

std::string Ideas::instructions(Video::Aspect aspect) {
    return fmt::format(
        "You help someone make videos from their footage: a stream recording, or clips from a trip or "
        "a story. {}\n\n{}\n\n{}",
        Prompts::aspectSentence(aspect), Prompts::transcriptWarning, replyForm);
}

Reading Ideas::reading(const std::vector<UUID>& scope, const std::vector<UUID>& given,
                       const std::optional<std::string>& instruction, Video::Aspect aspect,
                       const Project& project) {
    return Reading({.system = instructions(aspect),
                    .words = instruction ? "Find videos for this: " + *instruction
                                         : "Find the videos worth making in this footage.",
                    .scope = scope,
                    .given = given,
                    .maxTokens = 12'000,
                    .thinking = 5'000},
                   project);
}

std::vector<Idea> Ideas::ideas(const nlohmann::json& object, const Reading& from,
                               const std::optional<std::string>& instruction, const Run& run) {
    std::vector<Idea> found;
    const auto& list = Reply::member(object, "ideas");
    if (!list.is_array()) return found;
    for (const auto& entry : list) {
        Idea idea;
        idea.cuts = from.cuts(Reply::member(entry, "cuts"));
        if (idea.cuts.empty()) continue;
        idea.title = text(entry, "title").value_or("Untitled");
        idea.hook = text(entry, "hook").value_or("");
        idea.why = text(entry, "why").value_or("");
        idea.format = text(entry, "format");
        idea.instruction = instruction;
        idea.run = run;
        found.push_back(std::move(idea));
    }
    return found;
}

}
