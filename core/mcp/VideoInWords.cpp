#include "core/mcp/VideoInWords.h"

#include "core/ai/Brief.h"
#include "core/ai/SoundsByTag.h"
#include "core/mcp/MCPTags.h"
#include "core/model/ProjectSummary.h"
#include "core/model/VideoTime.h"
#include "platform/base/RawText.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

namespace murbo::VideoInWords {

namespace {

using Lines = std::vector<std::string>;

constexpr double usualVolume = 0.7; // of a sound that says nothing else

std::string joined(const Lines& lines, const char* with, const char* otherwise) {
    return lines.empty() ? otherwise : fmt::format("{}", fmt::join(lines, with));
}

/// When a moment of a source first plays on the video.
std::optional<double> place(const Video& video, const UUID& source, double at) {
    const auto starts = VideoTime::starts(video.cuts);
    for (std::size_t index = 0; index < starts.size(); ++index) {
        const auto& cut = video.cuts[index];
        if (cut.source == source && VideoTime::shows(cut, at))
            return starts[index] + std::max(at - cut.start, 0.0);
    }
    return std::nullopt;
}

std::string shot(const Shot& shot, const Video& video, const Said& said) {
    const auto at = place(video, shot.source, shot.at);
    auto text = at ? ProjectSummary::clock(*at) + " on the video" : std::string("not on the video");
    if (const auto line = MCPTags::line(shot.at, shot.source, said)) text += ", " + *line;
    text += ": " + (shot.playbook ? Brief::oneLine(*shot.playbook) : std::string(rawText(shot.layout)));
    if (std::abs(shot.zoom - 1) > 0.01) text += fmt::format(", zoom {:.2f}", shot.zoom);
    if (shot.move) text += ", " + Brief::oneLine(*shot.move);
    return text;
}

/// The line on which a sound plays, with the seconds after its start: so that it can be sent back as it is.
std::string soundPlace(const SoundCue& cue, const Said& said) {
    const auto [piece, distance] = said.nearest(cue.at, cue.source);
    if (!piece || cue.at < piece->start) return ProjectSummary::clock(cue.at);
    const auto after = cue.at - piece->start;
    return after < 0.05 ? piece->tag : fmt::format("{} + {:.1f} s", piece->tag, after);
}

std::string sound(const SoundCue& cue, const Said& said) {
    return fmt::format("{} at {}, volume {:.2f}{}", SoundsByTag::shownName(cue), soundPlace(cue, said),
                       cue.volume.value_or(usualVolume),
                       cue.muted.value_or(false) ? ", muted by the owner" : "");
}

std::string captions(const Captions& captions, const Said& said) {
    Lines big;
    Lines hidden;
    Lines broken;
    for (const auto& entry : captions.lines) {
        const auto* piece = said.of(entry.line);
        if (!piece) continue;
        if (entry.big.value_or(false)) big.push_back(piece->tag);
        if (entry.hidden.value_or(false)) hidden.push_back(piece->tag);
        if (!entry.pieces) continue;
        Lines texts;
        for (const auto& part : *entry.pieces) texts.push_back(Brief::oneLine(part.text));
        broken.push_back(piece->tag + ": " + joined(texts, " / ", ""));
    }
    auto text =
        fmt::format("Captions: big {}; hidden {}", joined(big, ", ", "none"), joined(hidden, ", ", "none"));
    if (!broken.empty()) text += "\nBroken by hand:\n" + joined(broken, "\n", "");
    return text;
}

std::string muted(const Look& look) {
    Lines lanes;
    constexpr std::pair<Lane, const char*> names[] = {
        {Lane::video, "Video"}, {Lane::sounds, "Sounds"}, {Lane::music, "Music"}};
    for (const auto& [lane, name] : names)
        if (look.mix && look.mix->isMuted(lane)) lanes.push_back(name);
    return lanes.empty() ? "" : "\n\nMuted by the owner: " + joined(lanes, ", ", "");
}

Lines fileNames(const List<SoundCue>& cues) {
    Lines names;
    for (const auto& cue : cues) names.push_back(SoundsByTag::shownName(cue));
    return names;
}

}

std::string whole(const Video& video, const Said& said) {
    const auto look = video.look.value_or(Look());
    Lines shots;
    for (const auto& one : look.shots) shots.push_back(shot(one, video, said));
    Lines sounds;
    for (const auto& one : look.sounds) sounds.push_back(sound(one, said));
    const auto cuts = Brief::cuts(video, said);
    return fmt::format("{} “{}”, {}, {}.\n\nCuts:\n{}\n\nShots:\n{}\n\n{}\n\nSounds:\n{}{}", video.tag(),
                       Brief::oneLine(video.title), rawText(video.aspect),
                       ProjectSummary::clock(video.length()), cuts.empty() ? "none yet" : cuts,
                       joined(shots, "\n", "none yet: all split"), captions(look.captions, said),
                       joined(sounds, "\n", "none"), muted(look));
}

std::string changes(const Video& before, const Video& now, const Said& said) {
    const auto old = before.look.value_or(Look());
    const auto look = now.look.value_or(Look());
    Lines lines;
    if (before.title != now.title)
        lines.push_back(
            fmt::format("Title: “{}” → “{}”", Brief::oneLine(before.title), Brief::oneLine(now.title)));
    if (before.aspect != now.aspect)
        lines.push_back(fmt::format("Aspect: {} → {}", rawText(before.aspect), rawText(now.aspect)));
    if (before.cuts != now.cuts)
        lines.push_back(fmt::format("Cuts, {} → {}, now:\n{}", ProjectSummary::clock(before.length()),
                                    ProjectSummary::clock(now.length()), Brief::cuts(now, said)));
    if (old.shots != look.shots) lines.push_back(fmt::format("Shots: {}", look.shots.size()));
    if (old.captions.lines != look.captions.lines)
        lines.emplace_back("Captions: big, hidden or breaks changed");
    if (old.sounds != look.sounds) lines.push_back(fmt::format("Sounds: {}", look.sounds.size()));
    if (old.overlays != look.overlays) lines.push_back(fmt::format("Overlays: {}", look.overlays.size()));
    if (old.music != look.music)
        lines.push_back(fmt::format("Music: {}", joined(fileNames(look.music), ", ", "none")));
    return joined(lines, "\n", "");
}

}
