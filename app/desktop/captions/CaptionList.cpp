#include "app/desktop/captions/CaptionList.h"

#include "app/desktop/captions/CaptionEdits.h"
#include "app/editor/Timecode.h"
#include "app/editor/commands/TimelinePicks.h"

#include <fmt/format.h>

namespace murbo {

CaptionList::CaptionList(Editor& open) : session(open) {
    connect(&session, &Editor::projectChanged, this, &CaptionList::refresh);
    connect(&session, &Editor::openVideoChanged, this, &CaptionList::refresh);
    connect(&session, &Editor::pickedChanged, this, &CaptionList::assignRows);
    connect(&session.playback, &Playback::timeChanged, this, &CaptionList::followPlayhead);
}

void CaptionList::setWatched(bool on) {
    if (on == watched) return;
    watched = on;
    refresh();
    emit watchedChanged();
}

void CaptionList::refresh() {
    if (!watched) return;
    const auto* video = session.video();
    shown = video ? CaptionCue::cues(*video, session.project()) : std::vector<CaptionCue>();
    current = rowAt(session.playback.time());
    assignRows();
}

void CaptionList::assignRows() {
    if (!watched) return;
    std::vector<CaptionRow> rows;
    std::unordered_map<std::string, int> seen;
    for (const auto& cue : shown) {
        CaptionRow row;
        const auto name = fmt::format("{} {}", cue.line.text(), cue.piece.value_or(-1));
        row.id = fmt::format("{} {}", name, ++seen[name]);
        row.time = QString::fromStdString(Timecode::fine(cue.start));
        row.text = QString::fromStdString(cue.text);
        row.big = cue.big;
        row.hidden = cue.hidden;
        row.broken = cue.piece.has_value();
        row.byHand = cue.byHand;
        row.picked = TimelinePicks::isPicked(session, pickOf(cue));
        row.current = current >= 0 && &cue == &shown[static_cast<std::size_t>(current)];
        rows.push_back(std::move(row));
    }
    assign(std::move(rows));
    emit pickedChanged();
}

int CaptionList::rowAt(double time) const {
    for (std::size_t row = 0; row < shown.size(); ++row)
        if (shown[row].start <= time && time < shown[row].end) return static_cast<int>(row);
    return -1;
}

void CaptionList::followPlayhead() {
    if (!watched) return;
    const int now = rowAt(session.playback.time());
    if (now == current) return;
    current = now;
    assignRows();
}

Pick CaptionList::pickOf(const CaptionCue& cue) const {
    return {Pick::Kind::caption, cue.line, cue.piece};
}

int CaptionList::pickedRow() const {
    const auto pick = CaptionEdits::picked(session);
    // A line may be shown by several cuts: the one at the playhead is meant.
    if (pick && has(current) && pickOf(shown[static_cast<std::size_t>(current)]) == *pick) return current;
    for (std::size_t row = 0; pick && row < shown.size(); ++row)
        if (pickOf(shown[row]) == *pick) return static_cast<int>(row);
    return -1;
}

QVariantList CaptionList::pickedWords() const {
    QVariantList list;
    const auto pick = CaptionEdits::picked(session);
    if (!watched || !pick) return list;
    for (const auto& word : CaptionEdits::words(session, pick->id))
        list.append(QVariantMap{{"words", QString::fromStdString(word.text)},
                                {"stressed", word.stressed},
                                {"begins", word.begins}});
    return list;
}

bool CaptionList::canJoin() const {
    return watched && CaptionEdits::possible(session, "join");
}

bool CaptionList::canReset() const {
    return watched && CaptionEdits::possible(session, "resetTiming");
}

void CaptionList::pick(int row) {
    if (!has(row)) return;
    const auto& cue = shown[static_cast<std::size_t>(row)];
    session.setInspecting(Inspecting::timeline);
    session.setFocus(Viewer::video);
    TimelinePicks::set(session, {pickOf(cue)});
    if (const auto moment = CaptionCue::shown(cue.start, {cue})) session.playback.seek(*moment);
}

void CaptionList::toggleBig(int row) {
    if (has(row)) CaptionEdits::toggleBig(session, pickOf(shown[static_cast<std::size_t>(row)]));
}

void CaptionList::toggleHidden(int row) {
    if (has(row)) CaptionEdits::toggleHidden(session, pickOf(shown[static_cast<std::size_t>(row)]));
}

QString CaptionList::textToEdit(int row) const {
    if (!has(row)) return "";
    const auto pick = pickOf(shown[static_cast<std::size_t>(row)]);
    return QString::fromStdString(CaptionEdits::text(session, pick)).simplified();
}

void CaptionList::retext(int row, const QString& text) {
    if (has(row) && text.simplified() != textToEdit(row))
        CaptionEdits::retext(session, pickOf(shown[static_cast<std::size_t>(row)]),
                             text.simplified().toStdString());
}

void CaptionList::toggleBreak(int word) {
    if (const auto pick = CaptionEdits::picked(session)) CaptionEdits::toggleBreak(session, pick->id, word);
}

void CaptionList::toggleStress(int word) {
    if (const auto pick = CaptionEdits::picked(session)) CaptionEdits::toggleStress(session, pick->id, word);
}

const CaptionCue* CaptionList::pickedCue() const {
    const int row = pickedRow();
    return has(row) ? &shown[static_cast<std::size_t>(row)] : nullptr;
}

void CaptionList::join() {
    CaptionEdits::perform(session, "join");
}

void CaptionList::resetTiming() {
    CaptionEdits::perform(session, "resetTiming");
}

}
