#include "app/desktop/captions/CaptionDrag.h"

#include "app/editor/Editor.h"
#include "app/editor/commands/CaptionCommands.h"
#include "app/editor/commands/CommandRun.h"

#include <algorithm>

#include <fmt/format.h>

namespace murbo {
namespace {

constexpr double shortest = 0.1;  ///< seconds that a caption keeps
constexpr double minShare = 0.03; ///< of a line's time that a piece keeps

const Line* lineOf(const Project& project, const UUID& source, const UUID& id) {
    const auto& lines = project.transcript(source).lines;
    const auto found = std::ranges::find(lines, id, &Line::id);
    return found == lines.end() ? nullptr : &*found;
}

}

std::optional<CaptionDrag::LineOnVideo> CaptionDrag::find(const Pick& pick, Stretch shown) const {
    auto caption = CaptionEdits::whole(editor, pick.id);
    const auto* line = caption ? lineOf(editor.project(), caption->source, pick.id) : nullptr;
    if (!line) return {};
    LineOnVideo found{
        .caption = std::move(*caption), .line = line->id, .start = line->start, .end = line->end};
    const auto& video = *editor.video();
    if (const auto* entry = video.look ? video.look->captions.line(line->id) : nullptr) {
        found.start = entry->start.value_or(line->start);
        found.end = entry->end.value_or(line->end);
    }
    found.whole = {found.start, found.end};
    found.shown = shown.from;
    const double middle = (shown.from + shown.to) / 2;
    double start = 0;
    for (const auto& cut : video.cuts) {
        const double after = start + cut.length();
        if (cut.source == found.caption.source && start <= middle && middle < after) {
            found.toSource = cut.start - start;
            found.cut = {cut.start, cut.end};
            found.start = std::max(found.start, cut.start);
            found.end = std::min(found.end, cut.end);
            found.from = found.start - found.toSource;
            found.to = found.end - found.toSource;
            return found;
        }
        start = after;
    }
    return {};
}

void CaptionDrag::begin(const Pick& caption, Stretch shown, CaptionGrip part) {
    held = find(caption, shown);
    hold = part;
    meet.reset();
    if (!held || !caption.piece || hold == CaptionGrip::whole) return;
    const bool start = hold == CaptionGrip::start;
    const auto piece = static_cast<std::size_t>(std::max<std::int64_t>(*caption.piece, 0));
    const auto last = held->caption.cues.size() - 1;
    if (start && piece > 0 && piece <= last) meet = piece - 1;
    if (!start && piece < last) meet = piece;
}

void CaptionDrag::move(double time) {
    if (!held) return;
    if (hold == CaptionGrip::whole)
        moveWhole(time);
    else if (meet)
        moveMeet(time);
    else
        retime(time);
}

/// Within the cut: what leaves it would be gone from under the hand.
void CaptionDrag::moveWhole(double time) {
    const auto& line = held->whole;
    const double low = std::min(held->cut.from - line.from, 0.0);
    const double high = std::max(held->cut.to - line.to, 0.0);
    const double by = std::max(std::clamp(time - held->shown, low, high), -line.from);
    CommandRun::run(editor, fmt::format(R"(["retimeCaption","{}",{},{}])", held->line.text(), line.from + by,
                                        line.to + by));
}

void CaptionDrag::retime(double time) {
    const bool atStart = hold == CaptionGrip::start;
    const double at = time + held->toSource;
    const double start = atStart ? std::clamp(at, 0.0, std::max(held->end - shortest, 0.0)) : held->start;
    const double end = atStart ? held->end : std::max(at, held->start + shortest);
    CommandRun::run(editor, fmt::format(R"(["retimeCaption","{}",{},{}])", held->line.text(), start, end));
}

void CaptionDrag::moveMeet(double time) {
    const auto& cues = held->caption.cues;
    std::vector<double> meets;
    for (std::size_t at = 0; at + 1 < cues.size(); ++at) meets.push_back(cues[at].end);
    const double before = *meet > 0 ? meets[*meet - 1] : 0;
    const double after = *meet + 1 < meets.size() ? meets[*meet + 1] : 1;
    const double length = held->to - held->from;
    if (length <= 0 || after - before <= 2 * minShare) return;
    meets[*meet] = std::clamp((time - held->from) / length, before + minShare, after - minShare);
    CaptionCommands::retimePieces(editor, held->line, held->caption.texts(), meets);
}

void CaptionDrag::end() {
    if (std::exchange(held, std::nullopt)) editor.closeDrag("Retime Caption");
}

}
