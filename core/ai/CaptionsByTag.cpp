#include "core/ai/CaptionsByTag.h"

#include "core/ai/LastRuns.h"
#include "core/ai/Reply.h"
#include "core/ai/VideoChange.h"
#include "platform/base/Problem.h"
#include "platform/base/Text.h"

#include <map>
#include <set>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::CaptionsByTag {

namespace {

using Reply::member;
using Pieces = std::vector<CaptionLine::Piece>;

struct Chosen {
    std::set<UUID> big;
    std::set<UUID> hidden;
    std::map<UUID, Pieces> broken;
    std::vector<UUID> order; ///< the lines, as they were named
    std::vector<std::string> leftOut;
};

/// The line of that tag, where the video plays it; else null, and left out.
const Said::Piece* line(const nlohmann::json& tag, const Video& video, const Said& said, Chosen& chosen) {
    const auto* piece = said.piece(tag);
    if (piece && !piece->note && VideoChange::playing(video, *piece)) return piece;
    chosen.leftOut.push_back(VideoChange::given(tag) + ": not a line the video plays");
    return nullptr;
}

void choose(const nlohmann::json& tags, const Video& video, const Said& said, std::set<UUID>& into,
            Chosen& chosen) {
    if (!tags.is_array()) return;
    for (const auto& tag : tags)
        if (const auto* piece = line(tag, video, said, chosen); piece && into.insert(piece->id).second)
            chosen.order.push_back(piece->id);
}

/// The pieces of a line, where together they are its words; nothing otherwise.
std::optional<Pieces> pieces(const nlohmann::json& given, std::string_view text) {
    if (!given.is_array()) return std::nullopt;
    Pieces made;
    std::string whole;
    for (const auto& piece : given) {
        if (!piece.is_string()) return std::nullopt;
        auto words = Text::trimmed(piece.get_ref<const std::string&>());
        if (words.empty()) continue;
        whole += words;
        made.push_back({.text = std::move(words)});
    }
    const bool same = Text::withoutWhiteSpace(whole) == Text::withoutWhiteSpace(text);
    return same && !made.empty() ? std::optional(std::move(made)) : std::nullopt;
}

void chooseBroken(const nlohmann::json& breaks, const Video& video, const Said& said, Chosen& chosen) {
    if (!breaks.is_array()) return;
    for (const auto& entry : breaks) {
        const auto* piece = line(member(entry, "line"), video, said, chosen);
        if (!piece) continue;
        auto made = pieces(member(entry, "pieces"), piece->text);
        if (!made) {
            chosen.leftOut.push_back(piece->tag + ": its pieces are not its words");
            continue;
        }
        if (chosen.broken.insert_or_assign(piece->id, std::move(*made)).second)
            chosen.order.push_back(piece->id);
    }
}

bool sameTexts(const Pieces& one, const Pieces& other) {
    return std::ranges::equal(one, other, {}, &CaptionLine::Piece::text, &CaptionLine::Piece::text);
}

void mark(CaptionLine& entry, const Chosen& chosen) {
    entry.big = chosen.big.contains(entry.line) ? std::optional(true) : std::nullopt;
    entry.hidden = chosen.hidden.contains(entry.line) ? std::optional(true) : std::nullopt;
    const auto broken = chosen.broken.find(entry.line);
    if (broken == chosen.broken.end()) {
        entry.pieces.reset();
    } else if (!entry.pieces || !sameTexts(*entry.pieces, broken->second)) { // else they keep their times
        entry.pieces = broken->second;
    }
}

void markAll(const Chosen& chosen, std::vector<CaptionLine>& lines) {
    std::set<UUID> there;
    for (auto& entry : lines) {
        there.insert(entry.line);
        mark(entry, chosen);
    }
    for (const auto& id : chosen.order)
        if (there.insert(id).second) mark(lines.emplace_back(CaptionLine{.line = id}), chosen);
    std::erase_if(lines, [](const CaptionLine& entry) { return entry == CaptionLine{.line = entry.line}; });
}

}

std::string replace(Project& project, const UUID& id, const Wishes& wishes, const Said& said,
                    const Run& run) {
    const auto video = VideoChange::video(project, id, "The video");
    Chosen chosen;
    choose(wishes.big, video, said, chosen.big, chosen);
    choose(wishes.hidden, video, said, chosen.hidden, chosen);
    chooseBroken(wishes.breaks, video, said, chosen);
    VideoChange::apply(project, id, video.tag(), [&](Video& changed) {
        if (!changed.look) changed.look.emplace();
        markAll(chosen, changed.look->captions.lines.edit());
        LastRuns::note(changed.runs, Kit::ID::look, run);
    });
    return fmt::format("{}: {} big, {} hidden, {} broken by hand.{}", video.tag(), chosen.big.size(),
                       chosen.hidden.size(), chosen.broken.size(), VideoChange::leftOut(chosen.leftOut));
}

}
