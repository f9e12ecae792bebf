#include "app/desktop/inspector/PickRows.h"

#include "app/desktop/captions/CaptionEdits.h"
#include "app/desktop/inspector/BookShelf.h"
#include "app/desktop/inspector/CaptionRows.h"
#include "app/desktop/inspector/CutRows.h"
#include "app/desktop/inspector/FileFacts.h"
#include "app/desktop/inspector/OverlayRows.h"
#include "app/desktop/inspector/RowMaker.h"
#include "app/desktop/inspector/ShotRows.h"
#include "app/desktop/inspector/SoundRows.h"
#include "app/editor/Editor.h"
#include "core/render/plan/Plan.h"

#include <algorithm>

namespace murbo::PickRows {
namespace {

using Control = InspectorRow::Control;

template <class Record>
const Record* find(const List<Record>& list, const UUID& id) {
    const auto found = std::ranges::find(list, id, &Record::id);
    return found == list.end() ? nullptr : &*found;
}

/// Only where it is there: a list that is edited is copied.
template <class Record, class Change>
void change(List<Record>& list, const UUID& id, Change body) {
    for (std::size_t at = 0; at < list.size(); ++at)
        if (list[at].id == id) return body(list.edit()[at]);
}

std::filesystem::path fileOf(const SoundCue& cue, const Editor& editor) {
    const std::filesystem::path file = cue.file;
    return file.is_relative() && editor.package() ? *editor.package() / file : file;
}

InspectorRowList ofCut(const Cut& cut, const RowMaterial& from) {
    const auto* source = from.editor.project().source(cut.source);
    const bool there = source && !from.editor.missing().contains(source->id);
    const auto facts = there ? from.facts.words(source->path) : source ? "The file was not found" : "";
    return CutRows::of(cut, source, facts, from.shelf);
}

InspectorRowList ofShot(const Shot& shot, const RowMaterial& from) {
    const auto* source = from.editor.project().source(shot.source);
    const auto framing = source && source->framing ? *source->framing : Framing();
    const auto frame = Plan::frameSize(from.editor.video()->aspect);
    return ShotRows::of(shot, framing, frame.height > frame.width, from.shelf);
}

InspectorRowList ofSound(const SoundCue& cue, bool music, const RowMaterial& from) {
    const auto facts = from.facts.of(fileOf(cue, from.editor));
    return SoundRows::of(cue, music, facts ? std::optional(facts->length) : std::nullopt);
}

InspectorRowList ofCaption(const Look& look, const Pick& pick, const Editor& editor) {
    const auto caption = CaptionEdits::whole(editor, pick.id);
    if (!caption || caption->cues.empty()) return CaptionRows::of("", false, false);
    const auto piece = static_cast<std::size_t>(std::max<std::int64_t>(pick.piece.value_or(0), 0));
    const bool alone = caption->cues.size() == 1 || pick.piece;
    if (alone && piece < caption->cues.size()) {
        const auto& cue = caption->cues[piece];
        return CaptionRows::of(RowMaker::said(cue.text), cue.big, cue.hidden);
    }
    const auto* entry = look.captions.line(pick.id);
    return CaptionRows::of(RowMaker::said(caption->raw), entry && entry->big.value_or(false),
                           entry && entry->hidden.value_or(false));
}

/// Rows that are about one thing alone.
bool isShared(const InspectorRow& row) {
    if (row.control == Control::picture || row.control == Control::wave || row.control == Control::button)
        return false;
    return row.control != Control::words && !CutRows::isEnd(row.id);
}

bool sameControl(const InspectorRow& one, const InspectorRow& other) {
    return one.id == other.id && one.control == other.control && one.name == other.name &&
           one.options == other.options;
}

/// A section that nothing is left of has no heading.
void dropEmptySections(InspectorRowList& rows) {
    for (auto row = rows.begin(); row != rows.end();) {
        const auto next = row + 1;
        const bool empty =
            row->control == Control::section && (next == rows.end() || next->control == Control::section);
        row = empty ? rows.erase(row) : next;
    }
}

void keepCommon(InspectorRowList& rows, const InspectorRowList& others) {
    std::erase_if(rows, [&](InspectorRow& row) {
        const auto same =
            std::ranges::find_if(others, [&](const auto& other) { return sameControl(row, other); });
        if (same == others.end()) return true;
        row.mixed |= row.current != same->current;
        row.changed |= same->changed;
        row.from = std::max(row.from, same->from);
        row.to = std::min(row.to, same->to);
        return false;
    });
}

}

InspectorRowList of(const Pick& pick, const RowMaterial& from) {
    static const Look none;
    const auto* video = from.editor.video();
    if (!video) return {};
    const auto& look = video->look ? *video->look : none;
    switch (pick.kind) {
        case Pick::Kind::cut:
            if (const auto* cut = find(video->cuts, pick.id)) return ofCut(*cut, from);
            return {};
        case Pick::Kind::shot:
            if (const auto* shot = find(look.shots, pick.id)) return ofShot(*shot, from);
            return {};
        case Pick::Kind::overlay:
            if (const auto* overlay = find(look.overlays, pick.id))
                return OverlayRows::of(*overlay, from.shelf);
            return {};
        case Pick::Kind::sound:
            if (const auto* cue = find(look.sounds, pick.id)) return ofSound(*cue, false, from);
            return {};
        case Pick::Kind::music:
            if (const auto* cue = find(look.music, pick.id)) return ofSound(*cue, true, from);
            return {};
        case Pick::Kind::caption:
            return ofCaption(look, pick, from.editor);
    }
    return {};
}

InspectorRowList common(const std::vector<Pick>& picks, const RowMaterial& from) {
    InspectorRowList rows;
    for (std::size_t at = 0; at < picks.size(); ++at) {
        auto next = of(picks[at], from);
        if (picks.size() > 1)
            std::erase_if(next,
                          [](const auto& row) { return row.control != Control::section && !isShared(row); });
        if (at == 0)
            rows = std::move(next);
        else
            keepCommon(rows, next);
    }
    dropEmptySections(rows);
    return rows;
}

void set(Video& video, const Pick& pick, BookShelf& shelf, const std::string& row, const QVariant& value) {
    if (pick.kind == Pick::Kind::cut)
        return change(video.cuts, pick.id, [&](Cut& cut) { CutRows::set(cut, shelf, row, value); });
    if (!video.look && pick.kind == Pick::Kind::caption) video.look.emplace();
    if (!video.look) return;
    auto& look = *video.look;
    switch (pick.kind) {
        case Pick::Kind::shot:
            return change(look.shots, pick.id, [&](Shot& shot) { ShotRows::set(shot, shelf, row, value); });
        case Pick::Kind::overlay:
            return change(look.overlays, pick.id,
                          [&](Overlay& overlay) { OverlayRows::set(overlay, shelf, row, value); });
        case Pick::Kind::sound:
            return change(look.sounds, pick.id, [&](SoundCue& cue) { SoundRows::set(cue, row, value); });
        case Pick::Kind::music:
            return change(look.music, pick.id, [&](SoundCue& cue) { SoundRows::set(cue, row, value); });
        case Pick::Kind::caption:
            return CaptionRows::set(look, pick.id, pick.piece, row, value);
        case Pick::Kind::cut:
            return;
    }
}

}
