#include "app/desktop/timeline/TimelineDrag.h"

#include "app/editor/Editor.h"
#include "app/editor/commands/BladeCommands.h"
#include "app/editor/commands/CommandRun.h"
#include "app/editor/commands/CutCommands.h"
#include "app/editor/commands/LookCommands.h"
#include "core/model/edits/VideoEdits.h"
#include "core/render/plan/Snapping.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include <fmt/format.h>

namespace murbo {
namespace {

constexpr double edgeReach = 6; ///< points inside each side at which an edge is taken
constexpr double seamReach = 3; ///< points to either side at which a seam is taken rather than an edge
constexpr double dragFrom = 4;  ///< points before a press is a drag
constexpr double noTime = 1e-9;

bool hasEdges(const TimelineBlock& block) {
    const auto kind = block.pick.kind;
    return kind == Pick::Kind::cut || kind == Pick::Kind::overlay || kind == Pick::Kind::sound ||
           kind == Pick::Kind::music || kind == Pick::Kind::caption;
}

bool isCaption(const TimelineBlock& block) {
    return block.pick.kind == Pick::Kind::caption;
}

bool isMovable(const TimelineBlock& block) {
    return hasEdges(block) || block.pick.kind == Pick::Kind::shot;
}

/// What the blade cuts.
bool isCuttable(const TimelineBlock& block) {
    return hasEdges(block) && !isCaption(block);
}

/// The cut before the seam that lies that near to a time; null where none follows on another there.
const TimelineBlock* beforeSeam(const TimelineLayout& layout, double time, double slack) {
    const TimelineBlock* before = nullptr;
    for (const auto& block : layout.blocks) {
        if (block.pick.kind != Pick::Kind::cut) continue;
        if (before && std::abs(block.from - time) <= slack) return before;
        before = &block;
    }
    return nullptr;
}

/// The line that puts a block at a time and, where it has one, gives it a length.
std::optional<std::string> placing(const TimelineBlock& block, double from, std::optional<double> length) {
    const auto id = block.pick.id.text();
    const auto time = length ? fmt::format("{},{}", from, *length) : fmt::format("{}", from);
    switch (block.pick.kind) {
        case Pick::Kind::overlay:
            return fmt::format(R"(["dragOverlay","{}",{}])", id, time);
        case Pick::Kind::sound:
        case Pick::Kind::music:
            return fmt::format(R"(["dragSound","{}",{}])", id, time);
        default:
            return {};
    }
}

/// A shot begins at its moment of the footage: it goes to the one that is under that time.
void placeShot(Editor& editor, const UUID& id, double time) {
    const auto moment = LookCommands::momentAt(editor, time);
    if (!moment) return;
    LookCommands::dragLook(editor, [&](Look& look) {
        for (auto& shot : look.shots.edit())
            if (shot.id == id) std::tie(shot.source, shot.at) = std::pair(moment->source, moment->at);
    });
}

std::string stepName(const TimelineBlock& block, TimelineDrag::Grip grip) {
    const bool moves = grip == TimelineDrag::Grip::block;
    switch (block.pick.kind) {
        case Pick::Kind::shot:
            return "Move Shot";
        case Pick::Kind::overlay:
            return moves ? "Move Overlay" : "Trim Overlay";
        case Pick::Kind::music:
            return moves ? "Move Song" : "Trim Song";
        default:
            return moves ? "Move Sound" : "Trim Sound";
    }
}

}

TimelineDrag::Grip TimelineDrag::grip(const TimelineLayout& layout, const TimelineSpan& span,
                                      Pointer at) const {
    if (at.y < TimelineLayout::rulerHeight) return Grip::scrub;
    if (editor.tool() == EditingTool::hand) return Grip::pan;
    const auto* block = layout.hit(span.time(at.x), at.y, 3 / span.scale);
    if (!block || !block->pickable) return Grip::band;
    const double wide = block->length() * span.scale;
    const double reach = std::min(edgeReach, wide / 3);
    const double left = at.x - span.x(block->from);
    const bool cut = block->pick.kind == Pick::Kind::cut;
    if (cut && editor.tool() == EditingTool::trim && std::min(left, wide - left) <= seamReach &&
        beforeSeam(layout, span.time(at.x), seamReach / span.scale))
        return Grip::roll;
    if (hasEdges(*block)) {
        if (left < reach) return Grip::start;
        if (wide - left < reach) return Grip::end;
    }
    if (cut) return editor.tool() == EditingTool::trim ? Grip::slip : Grip::cut;
    return isMovable(*block) ? Grip::block : Grip::none;
}

void TimelineDrag::press(const TimelineLayout& layout, const TimelineSpan& span, Pointer at, Modifiers keys) {
    cancel();
    const double time = std::max(span.time(at.x), 0.0);
    editor.setFocus(Viewer::video);
    editor.setInspecting(Inspecting::timeline);
    pressed = at;
    pressedTime = bandTo = time;
    bandBottom = at.y;
    moved = false;
    now = grip(layout, span, at);
    if (now == Grip::scrub) return editor.playback.seek(time);
    if (now == Grip::pan) return;
    const auto* block = layout.hit(time, at.y, 3 / span.scale);
    if (editor.tool() == EditingTool::blade && cutWithBlade(block, time, span.scale, keys)) {
        now = Grip::none;
        return;
    }
    before = keys.shift || keys.command ? TimelinePicks::all(editor) : std::vector<Pick>();
    if (!block || !block->pickable) {
        TimelinePicks::set(editor, before);
        return editor.playback.seek(time);
    }
    held = *block;
    if (now == Grip::roll) held = *beforeSeam(layout, time, seamReach / span.scale);
    if (isCaption(*block))
        caption.begin(block->pick, {block->from, block->to},
                      now == Grip::start ? CaptionDrag::CaptionGrip::start
                      : now == Grip::end ? CaptionDrag::CaptionGrip::end
                                         : CaptionDrag::CaptionGrip::whole);
    const bool again = TimelinePicks::isPicked(editor, block->pick) && !keys.shift && !keys.command;
    if (!again) TimelinePicks::click(editor, block->pick, keys);
    const bool edge = now == Grip::start || now == Grip::end || now == Grip::roll;
    if (!edge) editor.playback.seek(time);
}

/// Shift cuts all that is picked there, or all that lies there. Whether there is anything for the blade.
bool TimelineDrag::cutWithBlade(const TimelineBlock* block, double time, double scale,
                                const Modifiers& keys) {
    if (!keys.shift && (!block || !isCuttable(*block))) return false;
    const double at = TimelinePicks::snapped(editor, time, scale, {}, {}, keys);
    if (keys.shift)
        BladeCommands::bladeAll(editor, at);
    else if (block->pick.kind == Pick::Kind::cut)
        CutCommands::blade(editor, at);
    else
        BladeCommands::blade(editor, {block->pick}, at);
    return true;
}

double TimelineDrag::move(const TimelineLayout& layout, const TimelineSpan& span, Pointer at,
                          Modifiers keys) {
    const double time = span.time(at.x);
    if (now == Grip::none) return 0;
    if (now == Grip::pan) return pressedTime - time;
    if (now == Grip::scrub) {
        editor.playback.seek(std::max(time, 0.0));
        return 0;
    }
    if (!moved && std::hypot(at.x - pressed.x, at.y - pressed.y) < dragFrom) return 0;
    moved = true;
    snap.reset();
    switch (now) {
        case Grip::band:
            dragBand(layout, time, at.y);
            break;
        case Grip::cut:
            dragCut(time);
            break;
        case Grip::roll:
            dragSeam(time, span.scale, keys);
            break;
        case Grip::start:
        case Grip::end:
        case Grip::slip:
            if (held->pick.kind == Pick::Kind::cut)
                dragEdge(time, span.scale, keys);
            else if (isCaption(*held))
                dragCaption(time, span.scale, keys);
            else
                dragBlock(time, span.scale, keys);
            break;
        case Grip::block:
            if (isCaption(*held))
                dragCaption(time, span.scale, keys);
            else
                dragBlock(time, span.scale, keys);
            break;
        default:
            break;
    }
    return 0;
}

/// Where it would land is shown; the cut itself moves when it is let go.
void TimelineDrag::dragCut(double time) {
    const auto* video = editor.video();
    if (!video) return;
    ghostBy = time - pressedTime;
    drop = PartedRow::Landing{held->pick.id, VideoEdits::place(*video, time)};
}

/// Edges of a cut go by the source's time; the cut stays in its place meanwhile. What is generated has no
/// time of its own: at either end it gets longer or shorter.
void TimelineDrag::dragEdge(double time, double scale, const Modifiers& keys) {
    const double by = time - pressedTime;
    const bool generated = !held->source;
    if (now == Grip::slip) {
        if (!generated) CutCommands::slip(editor, held->pick.id, held->at - by);
        return;
    }
    const bool start = now == Grip::start;
    if (start && generated)
        return CutCommands::trim(editor, held->pick.id, false, held->at + held->length() - by);
    const double wanted = held->at + (start ? 0 : held->length()) + by;
    double to = wanted;
    if (held->source) to = TimelinePicks::snappedEdge(editor, wanted, *held->source, scale, keys);
    if (std::abs(to - wanted) > noTime) snap = time + to - wanted;
    CutCommands::trim(editor, held->pick.id, start, to);
}

/// The end of one cut and the start of the next go together.
void TimelineDrag::dragSeam(double time, double scale, const Modifiers& keys) {
    const double wanted = held->at + held->length() + time - pressedTime;
    double to = wanted;
    if (held->source) to = TimelinePicks::snappedEdge(editor, wanted, *held->source, scale, keys);
    if (std::abs(to - wanted) > noTime) snap = time + to - wanted;
    CutCommands::roll(editor, held->pick.id, to);
}

void TimelineDrag::dragBlock(double time, double scale, const Modifiers& keys) {
    const auto snapped = [&](double to) {
        return TimelinePicks::snapped(editor, to, scale, held->pick.id, {}, keys);
    };
    const double by = time - pressedTime;
    double from = held->from;
    std::optional<double> length;
    if (now == Grip::block) {
        const double shift = Snapping::shift(held->from, held->to, by, snapped);
        if (std::abs(shift - by) > noTime) snap = held->from + shift;
        from = held->from + shift;
    } else if (now == Grip::start) {
        from = std::min(snapped(held->from + by), held->to - 0.1);
        length = held->to - from;
    } else {
        length = std::max(snapped(held->to + by) - held->from, 0.1);
    }
    from = std::max(from, 0.0);
    if (held->pick.kind == Pick::Kind::shot) return placeShot(editor, held->pick.id, from);
    if (const auto line = placing(*held, from, length)) CommandRun::run(editor, *line);
}

/// It goes with the pointer from where it was taken: an edge, or all of it.
void TimelineDrag::dragCaption(double time, double scale, const Modifiers& keys) {
    const auto snapped = [&](double to) {
        return TimelinePicks::snapped(editor, to, scale, {}, held->pick.id, keys);
    };
    const double by = time - pressedTime;
    if (now == Grip::block) {
        const double shift = Snapping::shift(held->from, held->to, by, snapped);
        if (std::abs(shift - by) > noTime) snap = held->from + shift;
        return caption.move(held->from + shift);
    }
    const double wanted = (now == Grip::start ? held->from : held->to) + by;
    const double to = snapped(wanted);
    if (std::abs(to - wanted) > noTime) snap = to;
    caption.move(to);
}

void TimelineDrag::dragBand(const TimelineLayout& layout, double time, double y) {
    bandTo = time;
    bandBottom = y;
    std::set<TimelineRow> rows;
    const auto [top, bottom] = std::minmax(pressed.y, y);
    for (const auto& track : layout.tracks)
        if (track.top < bottom && track.top + track.height > top) rows.insert(track.row);
    // Layers are overlays of the look, drawn in a row of their own.
    if (rows.contains(TimelineRow::layers)) rows.insert(TimelineRow::overlays);
    auto picks = before;
    for (const auto& pick : TimelinePicks::caught(editor, pressedTime, time, rows)) {
        const auto* block = layout.find(pick);
        const bool drawn = pick.kind != Pick::Kind::overlay || !block || rows.contains(block->row);
        if (drawn && std::ranges::find(picks, pick) == picks.end()) picks.push_back(pick);
    }
    TimelinePicks::set(editor, picks);
}

std::optional<TimelineDrag::RubberBand> TimelineDrag::band() const {
    if (now != Grip::band || !moved) return {};
    const auto [from, to] = std::minmax(pressedTime, bandTo);
    const auto [top, bottom] = std::minmax(pressed.y, bandBottom);
    return RubberBand{from, to, top, bottom};
}

const TimelineBlock* TimelineDrag::trimmed(const TimelineLayout& layout) const {
    const bool trims = now == Grip::start || now == Grip::end || now == Grip::slip;
    if (!trims || !moved || !held || held->pick.kind != Pick::Kind::cut) return nullptr;
    return layout.find(held->pick);
}

std::optional<TimelineBlock> TimelineDrag::ghost() const {
    if (now != Grip::cut || !moved || !held) return {};
    return held->movedBy(ghostBy);
}

void TimelineDrag::release() {
    const auto was = std::exchange(now, Grip::none);
    const auto block = std::exchange(held, std::nullopt);
    const auto place = std::exchange(drop, std::nullopt);
    snap.reset();
    if (!block || !moved) return;
    if (was == Grip::cut && place)
        return CutCommands::move(editor, block->pick.id, static_cast<std::int64_t>(place->place));
    if (isCaption(*block)) return caption.end();
    if (block->pick.kind != Pick::Kind::cut) {
        editor.closeDrag(stepName(*block, was));
        return;
    }
    const bool atEnd = was == Grip::end || was == Grip::roll || !block->source;
    const auto* name = was == Grip::slip ? "Slip" : was == Grip::roll ? "Roll" : "Trim";
    CutCommands::endTrim(editor, block->pick.id, !atEnd, name);
}

void TimelineDrag::cancel() {
    if (held && moved && now != Grip::cut && editor.unfinished()) {
        editor.setEdge(std::nullopt);
        editor.setEdgeAfter(std::nullopt);
        editor.cancelDrag();
    }
    now = Grip::none;
    held.reset();
    drop.reset();
    snap.reset();
}

}
