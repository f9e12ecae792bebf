#include "core/ai/ShotsByTag.h"

#include "core/ai/LastRuns.h"
#include "core/ai/Reply.h"
#include "core/ai/VideoChange.h"
#include "core/model/Times.h"
#include "platform/base/Problem.h"
#include "platform/base/RawText.h"
#include "platform/base/Text.h"

#include <array>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::ShotsByTag {

namespace {

using Reply::member;

constexpr double touch = 0.05; ///< seconds; a cut that ends this soon after a line's start doesn't play it
constexpr std::array<std::string_view, 6> moves{"push", "pull", "drift", "pan-left", "pan-right", "shake"};

/// The cut on which a shot at that piece starts: one that plays it, or else one that comes after it.
const Cut* cutFor(const Video& video, const Said::Piece& piece) {
    if (const auto* cut = VideoChange::playing(video, piece)) return cut;
    for (const auto& cut : video.cuts)
        if (cut.source == piece.source && !cut.generator && piece.start < cut.end - touch) return &cut;
    return nullptr;
}

void layOut(Shot& shot, const nlohmann::json& entry, const Layouts& layouts) {
    const auto& value = member(entry, "layout");
    const auto name = value.is_string() ? Text::trimmed(value.get_ref<const std::string&>()) : "split";
    if (const auto layout = fromRawText<Shot::Layout>(Text::lowercased(name))) {
        shot.layout = *layout;
        return;
    }
    const auto found = layouts.find(name);
    if (found == layouts.end())
        throw Problem(fmt::format("{}: no layout {}", VideoChange::given(entry, "at"),
                                  VideoChange::given(nlohmann::json(name))));
    shot.playbook = found->first;
    shot.version = found->second;
}

bool sameFraming(const Shot& one, const Shot& other) {
    return one.source == other.source && std::abs(one.at - other.at) < Times::samePlace &&
           one.layout == other.layout && one.playbook == other.playbook && one.version == other.version;
}

/// What a model can't name stays as the owner set it, once: of two entries the second is a shot of its own.
void keepRest(Shot& shot, const List<Shot>& old, const std::vector<Shot>& others) {
    const auto found = std::find_if(old.begin(), old.end(), [&](const Shot& one) {
        return sameFraming(one, shot) && !std::ranges::count(others, one.id, &Shot::id);
    });
    if (found == old.end()) return;
    auto kept = *found;
    kept.zoom = shot.zoom;
    kept.move = shot.move;
    shot = std::move(kept);
}

/// Throws a Problem with the reason for which the entry is left out.
Shot shot(const nlohmann::json& entry, const Video& video, const Said& said, const Layouts& layouts) {
    const auto* piece = said.piece(member(entry, "at"));
    const auto* cut = piece ? cutFor(video, *piece) : nullptr;
    if (!cut) throw Problem(VideoChange::given(entry, "at") + ": not a line the video plays");
    Shot shot{.source = piece->source, .at = std::max(piece->start, cut->start)};
    layOut(shot, entry, layouts);
    shot.zoom = std::clamp(VideoChange::number(member(entry, "zoom")).value_or(1), 1.0, 2.0);
    const auto& move = member(entry, "move");
    if (move.is_string() && std::ranges::count(moves, move.get_ref<const std::string&>()))
        shot.move = move.get<std::string>();
    return shot;
}

}

std::string replace(Project& project, const UUID& id, const nlohmann::json& entries, const Said& said,
                    const Layouts& layouts, const Run& run) {
    const auto video = VideoChange::video(project, id, "The video");
    const auto old = video.look ? video.look->shots : List<Shot>();
    std::vector<Shot> shots;
    std::vector<std::string> leftOut;
    for (const auto& entry : entries) try {
            auto made = shot(entry, video, said, layouts);
            keepRest(made, old, shots);
            shots.push_back(std::move(made));
        } catch (const Problem& problem) {
            leftOut.push_back(problem.message());
        }
    if (shots.empty()) throw Problem(VideoChange::nothingHolds("No shot holds up. ", leftOut));
    const auto count = shots.size();
    VideoChange::apply(project, id, video.tag(), [&](Video& changed) {
        if (!changed.look) changed.look.emplace();
        changed.look->shots = std::move(shots);
        LastRuns::note(changed.runs, Kit::ID::look, run);
    });
    return fmt::format("{} has {} shots.{}", video.tag(), count, VideoChange::leftOut(leftOut));
}

}
