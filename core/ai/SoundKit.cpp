#include "core/ai/SoundKit.h"

#include "core/ai/Brief.h"
#include "core/ai/Prompts.h"
#include "core/ai/Reply.h"
#include "core/ai/VideoChange.h"
#include "core/model/VideoTime.h"
#include "platform/base/Problem.h"
#include "platform/base/RawText.h"

#include <algorithm>

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

namespace murbo::SoundKit {

namespace {

using nlohmann::json;

constexpr double punchedIn = 1.01; // zoom from which a shot counts as punched in

constexpr const char* task =
    "You choose sound effects for one video, the way an editor of Shorts would: on visual moments (a switch "
    "of "
    "framing, a punch-in, a punchline shown big, something that happens on screen), not on every one. A few "
    "well "
    "placed are better than many. Choose files by their folder and name.";
constexpr const char* replyForm =
    "Reply with JSON only, the sounds the video should have (it replaces what it has):\n"
    R"({"sounds": [{"file": "Folder/name.wav", "at": "C03.04", "after": 0.0, "volume": 0.6}]})"
    "\n\"at\" is the line the sound plays on; \"after\" is seconds after that line starts; volume is 0 to 1, "
    "about "
    "0.6 for most.";

/// When on the video a moment of a source first shows; nothing where it doesn't.
std::optional<double> shownAt(const Video& video, const UUID& source, double at) {
    const auto starts = VideoTime::starts(video.cuts);
    for (std::size_t n = 0; n < video.cuts->size(); ++n) {
        const auto& cut = (*video.cuts)[n];
        if (cut.source == source && VideoTime::shows(cut, at))
            return starts[n] + std::max(0.0, at - cut.start);
    }
    return std::nullopt;
}

std::string switches(const Video& video) {
    std::vector<std::pair<double, std::string>> lines;
    if (video.look)
        for (const auto& shot : *video.look->shots)
            if (const auto at = shownAt(video, shot.source, shot.at))
                lines.emplace_back(*at, fmt::format("{:.1f} s: {}{}", *at, rawText(shot.layout),
                                                    shot.zoom > punchedIn ? " punched in" : ""));
    std::stable_sort(lines.begin(), lines.end(),
                     [](const auto& one, const auto& other) { return one.first < other.first; });
    std::string text;
    for (const auto& [at, words] : lines) text += (text.empty() ? "" : "\n") + words;
    return text.empty() ? "none" : text;
}

std::string shownBig(const Video& video, const Said& said) {
    std::vector<std::string> tags;
    if (video.look)
        for (const auto& line : *video.look->captions.lines)
            if (const auto* piece = line.big == true ? said.of(line.line) : nullptr)
                tags.push_back(piece->tag);
    return tags.empty() ? "none" : fmt::format("{}", fmt::join(tags, ", "));
}

}

std::string instructions() {
    return fmt::format("{}\n\n{}\n\n{}", task, Prompts::transcriptWarning, replyForm);
}

Ask ask(const Video& video, const Project&, const Said& said, const std::vector<std::string>& library) {
    auto words = fmt::format(
        "The video “{}”. Its lines, with when each comes on the video:\n{}"
        "\n\nIts switches of framing:\n{}"
        "\n\nIts punchlines shown big: {}"
        "\n\nThe sound library:\n{}",
        video.title, Brief::script(video, said), switches(video), shownBig(video, said),
        fmt::join(library, "\n"));
    return {Ask::Model::cheap,
            {{Ask::Message::Role::system, instructions()}, {Ask::Message::Role::user, std::move(words)}},
            4'000,
            1'000};
}

std::vector<std::string> files(const json& object) {
    return SoundsByTag::named(Reply::member(object, "sounds"));
}

std::string apply(const json& object, const UUID& video, Project& project, const SoundsByTag::Library& sounds,
                  const Run& run) {
    const auto& list = Reply::member(object, "sounds");
    if (!list.is_array()) throw Problem("No sounds could be read from the answer; Activity has it.");
    auto changed = project;
    auto words = SoundsByTag::replace(changed, video, list, Said(changed), sounds, run);
    project = std::move(changed);
    return words;
}

}
