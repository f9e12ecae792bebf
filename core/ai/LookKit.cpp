#include "core/ai/LookKit.h"

#include "core/ai/Brief.h"
#include "core/ai/CaptionsByTag.h"
#include "core/ai/LastRuns.h"
#include "core/ai/Prompts.h"
#include "core/ai/Reply.h"
#include "core/ai/VideoChange.h"
#include "core/model/VideoTime.h"
#include "platform/base/Problem.h"

#include <algorithm>
#include <set>

#include <fmt/format.h>
#include <fmt/ranges.h>
#include <nlohmann/json.hpp>

namespace murbo::LookKit {

namespace {

using nlohmann::json;

constexpr double shortestOverlay = 0.2; // seconds

constexpr const char* task =
    " video its look, the way an editor of Shorts would. The footage has the content (often a game) and a "
    "face (often "
    "a VTuber avatar in a corner, or the person filming). You choose, line by line, how the frame shows "
    "them.";
constexpr const char* ownLayouts =
    "Layouts:\n"
    "- split: content on top, face below. The default, for talking over what happens.\n"
    "- content: the content fills the frame. When something happens on screen, or the words point at it.\n"
    "- face: the face fills the frame. Reactions: laughing, screaming, a punchline, talking to chat.\n";
constexpr const char* manner =
    "Change the framing every 2 to 4 seconds on average, never under 1 second, and come back to split "
    "between the "
    "bigger moments. Punch in (zoom 1.2 to 1.6) only on the strongest moments; on face keep to 1.1 to 1.25. "
    "A shot can "
    "move instead: push (slowly in, for a build-up), pull, pan-left, pan-right, shake (a hit, a scream).\n\n"
    "Name the one to three punchlines whose caption should be shown big, or none.\n";
constexpr const char* offered =
    "\nOverlays you may lay on a line, at most three, only where one lifts the moment:\n";
constexpr const char* replyForm =
    "Reply with JSON only. Each shot starts where its line starts and holds until the next:\n"
    R"({"shots": [{"at": "C03.01", "layout": "split"}, {"at": "C03.04", "layout": "face", "zoom": 1.2}], "big": ["C03.05"], "overlays": [{"playbook": "id", "at": "C03.05"}]})"
    "\nThe first shot is at the first line.";

std::string listed(const Offers& offers) {
    std::vector<std::string> lines;
    for (const auto& offer : offers)
        lines.push_back(
            fmt::format("- {} ({}): {}", offer.id, Brief::oneLine(offer.name), Brief::oneLine(offer.about)));
    return fmt::format("{}", fmt::join(lines, "\n"));
}

Brief::Clips clipsOn(const Video& video, const Project& project, const Said& said) {
    std::set<UUID> played;
    for (const auto& cut : video.cuts)
        for (const auto* piece : said.played(cut)) played.insert(piece->clip);
    Brief::Clips clips;
    for (const auto& clip : project.clips)
        if (played.contains(clip.id)) clips.push_back(&clip);
    return clips;
}

ShotsByTag::Layouts versions(const Offers& layouts) {
    ShotsByTag::Layouts found;
    for (const auto& offer : layouts) found.emplace(offer.id, offer.version);
    return found;
}

/// The captions that the owner chose to hide and to break, as a model would name them; of lines that play.
struct OwnChoices {
    json hidden = json::array();
    json breaks = json::array();
    std::vector<CaptionLine> elsewhere; ///< of lines that don't play now

    OwnChoices(const Video& video, const Said& said) {
        if (!video.look) return;
        for (const auto& line : *video.look->captions.lines) {
            const auto* piece = said.of(line.line);
            if (!piece || piece->gone || !VideoChange::playing(video, *piece)) {
                elsewhere.push_back(line);
                continue;
            }
            if (line.hidden == true) hidden.push_back(piece->tag);
            if (line.pieces) breaks.push_back({{"line", piece->tag}, {"pieces", texts(*line.pieces)}});
        }
    }

private:
    static json texts(const std::vector<CaptionLine::Piece>& pieces) {
        auto list = json::array();
        for (const auto& piece : pieces) list.push_back(piece.text);
        return list;
    }
};

/// Shows these captions big and no others. What was chosen for lines that don't play now stays as well.
std::string showBig(const json& big, const UUID& video, Project& project, const Run& run) {
    const Said said(project);
    const OwnChoices own(VideoChange::video(project, video, "The video"), said);
    auto words = CaptionsByTag::replace(project, video, {big, own.hidden, own.breaks}, said, run);
    VideoChange::apply(project, video, "The video", [&](Video& changed) {
        auto& lines = changed.look->captions.lines.edit();
        for (const auto& kept : own.elsewhere) {
            std::erase_if(lines, [&](const CaptionLine& line) { return line.line == kept.line; });
            lines.push_back(kept);
        }
    });
    return words;
}

std::optional<Overlay> overlay(const json& entry, const Video& video, const Said& said,
                               const Offers& offers) {
    const auto& id = Reply::member(entry, "playbook");
    const auto offer = std::find_if(offers.begin(), offers.end(), [&](const Offer& each) {
        return id.is_string() && each.id == id.get_ref<const std::string&>();
    });
    const auto* piece = said.piece(Reply::member(entry, "at"));
    const auto* cut = piece ? VideoChange::playing(video, *piece) : nullptr;
    if (offer == offers.end() || !cut) return std::nullopt;
    const double at = std::max(piece->start, cut->start);
    const auto begins = VideoTime::starts(video.cuts)[static_cast<std::size_t>(cut - video.cuts->data())];
    const double room = std::max(shortestOverlay, video.length() - (begins + at - cut->start));
    return Overlay{.playbook = offer->id,
                   .version = offer->version,
                   .source = piece->source,
                   .at = at,
                   .length = std::min(std::max(shortestOverlay, offer->seconds), room),
                   .mute = offer->mute};
}

std::string layOn(const json& entries, const UUID& id, Project& project, const Offers& offers,
                  const Run& run) {
    const Said said(project);
    std::size_t count = 0;
    const auto video = VideoChange::video(project, id, "The video");
    VideoChange::apply(project, id, "The video", [&](Video& changed) {
        for (const auto& entry : entries) {
            const auto laid = count < maxOverlays ? overlay(entry, video, said, offers) : std::nullopt;
            if (!laid) continue;
            if (!changed.look) changed.look.emplace();
            changed.look->overlays.edit().push_back(*laid);
            ++count;
        }
        if (count > 0) LastRuns::note(changed.runs, Kit::ID::look, run);
    });
    return fmt::format("{} overlay{} laid on", count, count == 1 ? "" : "s");
}

}

std::string instructions(Video::Aspect aspect, const Offers& layouts, const Offers& overlays) {
    auto text = fmt::format("You give one {}{}\n\n{}\n\n{}",
                            aspect == Video::Aspect::horizontal ? "horizontal (16:9)" : "vertical (9:16)",
                            task, Prompts::transcriptWarning, ownLayouts);
    if (!layouts.empty()) text += listed(layouts) + "\n";
    text += "\n";
    text += manner;
    if (!overlays.empty()) text += offered + listed(overlays) + "\n";
    return text + "\n" + replyForm;
}

Ask ask(const Video& video, const Project& project, const Said& said, const Offers& layouts,
        const Offers& overlays) {
    std::string words;
    if (const auto notes = Brief::notes(clipsOn(video, project, said), project); !notes.empty())
        words = "The owner's notes on the footage:\n" + notes + "\n\n";
    words += fmt::format("The video “{}”, {:.1f} s. Its lines, with when each comes on the video:\n{}",
                         video.title, video.length(), Brief::script(video, said));
    return {Ask::Model::cheap,
            {{Ask::Message::Role::system, instructions(video.aspect, layouts, overlays)},
             {Ask::Message::Role::user, std::move(words)}},
            6'000,
            1'500};
}

std::string apply(const json& object, const UUID& video, Project& project, const Offers& layouts,
                  const Offers& overlays, const Run& run) {
    auto changed = project;
    std::vector<std::string> done;
    if (const auto& shots = Reply::member(object, "shots"); shots.is_array())
        done.push_back(ShotsByTag::replace(changed, video, shots, Said(changed), versions(layouts), run));
    if (const auto& big = Reply::member(object, "big"); big.is_array())
        done.push_back(showBig(big, video, changed, run));
    if (const auto& entries = Reply::member(object, "overlays"); entries.is_array())
        done.push_back(layOn(entries, video, changed, overlays, run));
    if (done.empty()) throw Problem("No look could be read from the answer; Activity has it.");
    project = std::move(changed);
    return fmt::format("{}", fmt::join(done, " "));
}

}
