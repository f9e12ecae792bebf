#include "app/desktop/timeline/CaptionDrag.h"

#include "app/desktop/timeline/CommandRun.h"
#include "app/editor/Editor.h"
#include "app/editor/commands/CaptionCommands.h"

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

std::optional<CaptionDrag::LineOnVideo> CaptionDrag::find(const TimelineBlock& block) const {
    auto caption = CaptionEdits::whole(editor, block.pick.id);
    const auto* line = caption ? lineOf(editor.project(), caption->source, block.pick.id) : nullptr;
    if (!line) return {};
    LineOnVideo found{std::move(*caption), line->id, 0, 0, line->start, line->end, 0};
    const auto& video = *editor.video();
    if (const auto* entry = video.look ? video.look->captions.line(line->id) : nullptr) {
        found.start = entry->start.value_or(line->start);
        found.end = entry->end.value_or(line->end);
    }
    const double middle = (block.from + block.to) / 2;
    double start = 0;
    for (const auto& cut : video.cuts) {
        const double after = start + cut.length();
        if (cut.source == found.caption.source && start <= middle && middle < after) {
            found.toSource = cut.start - start;
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

void CaptionDrag::begin(const TimelineBlock& block, bool start) {
    held = find(block);
    atStart = start;
    meet.reset();
    if (!held || !block.pick.piece) return;
    const auto piece = static_cast<std::size_t>(std::max<std::int64_t>(*block.pick.piece, 0));
    const auto last = held->caption.cues.size() - 1;
    if (start && piece > 0 && piece <= last) meet = piece - 1;
    if (!start && piece < last) meet = piece;
}

void CaptionDrag::move(double time) {
    if (!held) return;
    if (meet)
        moveMeet(time);
    else
        retime(time);
}

void CaptionDrag::retime(double time) {
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
