#include "core/ai/SoundsByTag.h"

#include "core/ai/Brief.h"
#include "core/ai/LastRuns.h"
#include "core/ai/Reply.h"
#include "core/ai/VideoChange.h"
#include "platform/base/Problem.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::SoundsByTag {

namespace {

using Reply::member;

constexpr double usualVolume = 0.7;
constexpr double samePlace = 0.1; ///< seconds; a model reads the place of a sound in tenths

/// The path in the project of a file as a model names it.
std::optional<std::string> path(const std::string& name, const List<SoundCue>& own, const Library& library) {
    for (const auto& cue : own)
        if (cue.file == name) return cue.file;
    if (const auto found = library.find(name); found != library.end()) return found->second;
    for (const auto& cue : own)
        if (shownName(cue) == name) return cue.file;
    return std::nullopt;
}

/// What a model can't name stays as the owner set it, once: of two entries the second is a sound of its own.
void keepRest(SoundCue& cue, const List<SoundCue>& own, const std::vector<SoundCue>& others) {
    for (const auto& one : own) {
        if (one.file != cue.file || one.source != cue.source || std::abs(one.at - cue.at) > samePlace)
            continue;
        if (std::ranges::count(others, one.id, &SoundCue::id)) continue;
        auto kept = one;
        kept.volume = cue.volume;
        cue = std::move(kept);
        return;
    }
}

/// Throws a Problem with the reason for which the entry is left out.
SoundCue cue(const nlohmann::json& entry, const Video& video, const List<SoundCue>& own, const Said& said,
             const Library& library) {
    const auto& file = member(entry, "file");
    const auto found = file.is_string() ? path(file.get<std::string>(), own, library) : std::nullopt;
    if (!found) throw Problem(VideoChange::given(file) + ": no such sound; list_sounds names them");
    const auto* piece = said.piece(member(entry, "at"));
    const auto* cut = piece ? VideoChange::playing(video, *piece) : nullptr;
    if (!cut) throw Problem(VideoChange::given(entry, "at") + " is not a line the video plays");
    SoundCue cue{.file = *found, .source = piece->source, .at = std::max(piece->start, cut->start)};
    const auto after = VideoChange::number(member(entry, "after")).value_or(0);
    if (after > 0) cue.at += after;
    cue.volume = std::clamp(VideoChange::number(member(entry, "volume")).value_or(usualVolume), 0.0, 1.0);
    return cue;
}

}

std::string shownName(const SoundCue& cue) {
    return Brief::oneLine(cue.file.substr(cue.file.rfind('/') + 1));
}

std::vector<std::string> named(const nlohmann::json& sounds) {
    std::vector<std::string> names;
    if (!sounds.is_array()) return names;
    for (const auto& entry : sounds) {
        const auto& file = member(entry, "file");
        if (file.is_string() && !std::ranges::count(names, file.get_ref<const std::string&>()))
            names.push_back(file.get<std::string>());
    }
    return names;
}

std::string replace(Project& project, const UUID& id, const nlohmann::json& entries, const Said& said,
                    const Library& library, const Run& run) {
    const auto video = VideoChange::video(project, id, "The video");
    const auto own = video.look ? video.look->sounds : List<SoundCue>();
    std::vector<SoundCue> sounds;
    std::vector<std::string> leftOut;
    for (const auto& entry : entries) try {
            auto made = cue(entry, video, own, said, library);
            keepRest(made, own, sounds);
            sounds.push_back(std::move(made));
        } catch (const Problem& problem) {
            leftOut.push_back(problem.message());
        }
    if (sounds.empty() && !leftOut.empty())
        throw Problem(VideoChange::nothingHolds("No sound holds up. ", leftOut));
    const auto count = sounds.size();
    VideoChange::apply(project, id, video.tag(), [&](Video& changed) {
        if (!changed.look) changed.look.emplace();
        changed.look->sounds = std::move(sounds);
        LastRuns::note(changed.runs, Kit::ID::sound, run);
    });
    return fmt::format("{} has {} sounds.{}", video.tag(), count, VideoChange::leftOut(leftOut));
}

}
