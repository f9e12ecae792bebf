#include "app/desktop/models/BrowserModel.h"

#include "app/desktop/models/BrowserRows.h"
#include "app/editor/Editor.h"
#include "app/editor/commands/TranscribeCommands.h"
#include "app/editor/commands/Transcriptions.h"

#include <algorithm>

namespace murbo {

BrowserModel::BrowserModel(Editor& session, QObject* parent) : Rows(parent), editor(session) {
    const auto follow = [this](auto signal) { connect(&editor, signal, this, &BrowserModel::refresh); };
    follow(&Editor::projectChanged);
    follow(&Editor::sidebarChanged);
    follow(&Editor::missingChanged);
    follow(&Editor::pickedClipsChanged);
    follow(&Editor::heldClipChanged);
    follow(&Editor::heldSourceChanged);
    follow(&Editor::openVideoChanged);
    connect(&Transcriptions::of(editor), &Transcriptions::changed, this, &BrowserModel::refresh);
    connect(&editor, &Editor::heldClipChanged, this, [this] { asked.clear(); });
    refresh();
}

void BrowserModel::setWords(const QString& words) {
    if (words == search) return;
    search = words;
    emit wordsChanged();
    refresh();
}

void BrowserModel::refresh() {
    assign(BrowserRows::of(editor, search.toStdString()));
    emit emptyWordsChanged();
}

QString BrowserModel::emptyWords() const {
    if (!rows().empty()) return "";
    if (!search.trimmed().isEmpty()) return "Nothing here holds these words";
    switch (editor.sidebar().collection) {
        case Collection::videos:
            return "No videos yet: put a clip in with E, or make one with File ▸ New Video";
        case Collection::sources:
            return editor.sidebar().source ? "No clips yet: mark one with M, or pick a range and put it in"
                                           : "No footage yet: File ▸ Add Footage, or drop files here";
        case Collection::clips:
            return "No clips yet: mark one with M while you look through a source";
        case Collection::favourites:
            return "No favourites yet: F makes the picked clip one";
        case Collection::bookmarks:
            return "No bookmarks yet: P marks the moment in the source viewer";
        case Collection::missing:
            return "No footage is missing";
        default:
            return "";
    }
}

void BrowserModel::hold(const BrowserRow& row) {
    editor.setInspecting(row.kind == BrowserRow::Kind::video ? Inspecting::timeline : Inspecting::browser);
    // A range is marked on one source: on another it would lie anywhere.
    const auto source = row.kind == BrowserRow::Kind::source ? row.record : row.source;
    if (row.kind != BrowserRow::Kind::video && editor.heldSource() && *editor.heldSource() != source)
        editor.setRange(std::nullopt);
    switch (row.kind) {
        case BrowserRow::Kind::clip:
            editor.setFocus(Viewer::source);
            editor.holdClip(row.record);
            return editor.holdSource(row.source); // marks go onto it
        case BrowserRow::Kind::source:
            editor.setFocus(Viewer::source);
            editor.holdClip(std::nullopt);
            return editor.holdSource(row.record);
        case BrowserRow::Kind::bookmark:
            editor.setFocus(Viewer::source);
            editor.holdClip(std::nullopt);
            editor.holdSource(row.source);
            return editor.source.seek(row.from);
        case BrowserRow::Kind::video:
            editor.setFocus(Viewer::video);
            return editor.openOnTimeline(row.record);
    }
}

void BrowserModel::pick(int at, int modifiers) {
    if (at < 0 || at >= rowCount()) return;
    const auto row = rows()[at];
    asked = row.id;
    std::vector<UUID> clips;
    if (row.kind == BrowserRow::Kind::clip) {
        clips = editor.pickedClips();
        if (modifiers & Qt::ShiftModifier) {
            const int first = std::min(at, std::max(heldRow(), 0));
            for (int other = first; other <= std::max(at, heldRow()); ++other)
                if (std::ranges::find(clips, rows()[other].record) == clips.end())
                    clips.push_back(rows()[other].record);
        } else if (!(modifiers & Qt::ControlModifier)) {
            clips = {row.record};
        } else if (std::erase(clips, row.record) == 0) {
            clips.push_back(row.record);
        }
    }
    editor.setPickedClips(std::move(clips));
    hold(row);
}

void BrowserModel::activate(int at) {
    if (at < 0 || at >= rowCount()) return;
    const auto row = rows()[at];
    hold(row);
    if (row.kind != BrowserRow::Kind::video && editor.source.isLoaded()) editor.source.playPause();
}

void BrowserModel::tryAgain(int at) {
    if (at < 0 || at >= rowCount()) return;
    const auto& row = rows()[at];
    if (row.source) TranscribeCommands::tryAgain(editor, *row.source, {row.from, row.to});
}

void BrowserModel::askAbout(int row) {
    asked = row < 0 || row >= rowCount() ? "" : rows()[row].id;
}

void BrowserModel::holdAsked() {
    const auto found = std::ranges::find(rows(), asked, &BrowserRow::id);
    if (found != rows().end()) return hold(BrowserRow(*found));
    if (const int row = heldRow(); row >= 0) hold(BrowserRow(rows()[row]));
}

std::optional<UUID> BrowserModel::askedClip() const {
    const auto found = std::ranges::find(rows(), asked, &BrowserRow::id);
    const bool isClip = found != rows().end() && found->kind == BrowserRow::Kind::clip;
    if (isClip) return found->record;
    return editor.held() ? editor.heldClip() : std::nullopt;
}

int BrowserModel::heldRow() const {
    const auto found = std::ranges::find(rows(), true, &BrowserRow::held);
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

QString BrowserModel::tagOf(int row) const {
    return row < 0 || row >= rowCount() ? QString() : rows()[row].tag;
}

QString BrowserModel::kindOf(int row) const {
    return row < 0 || row >= rowCount() ? "" : BrowserRow::name(rows()[row].kind);
}

}
