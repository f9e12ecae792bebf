#include "app/desktop/transcript/TranscriptPage.h"

#include "app/desktop/transcript/TranscriptTyping.h"
#include "app/editor/Timecode.h"
#include "app/editor/commands/FootageCommands.h"
#include "app/editor/commands/KeyCommands.h"
#include "app/editor/commands/MarkCommands.h"
#include "app/editor/commands/TranscribeCommands.h"
#include "core/model/Settings.h"

#include <QQuickItem>
#include <QQuickTextDocument>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

namespace murbo {
namespace {

constexpr int lookBack = 16; ///< rows before the next that may still be spoken: speakers overlap

QString words(const std::string& given) {
    return QString::fromStdString(given);
}

}

TranscriptPage::TranscriptPage(Editor& open) : session(open), elsewhere(open) {
    wantsVideo = session.inspecting() == Inspecting::timeline;
    const auto refreshing = {&Editor::heldClipChanged, &Editor::heldSourceChanged, &Editor::openVideoChanged};
    for (const auto signal : refreshing) connect(&session, signal, this, &TranscriptPage::refresh);
    connect(&session, &Editor::projectChanged, this, &TranscriptPage::refresh);
    connect(&session, &Editor::inspectingChanged, this, &TranscriptPage::followInspecting);
    connect(&session, &Editor::rangeChanged, this, &TranscriptPage::rangeChanged);
    connect(&session, &Editor::rangeChanged, this, &TranscriptPage::looksChanged);
    connect(&session.playback, &Playback::timeChanged, this, &TranscriptPage::followPlayer);
    connect(&session.source, &Playback::timeChanged, this, &TranscriptPage::followPlayer);
    connect(&text, &TranscriptDocument::changed, this, &TranscriptPage::looksChanged);
    refresh();
}

TranscriptPage::~TranscriptPage() = default;

// ------------------------------------------------------------------- whose words --

bool TranscriptPage::showsVideo() const {
    const bool held = session.held() || session.heldSource();
    return session.video() && (wantsVideo || !held);
}

Playback& TranscriptPage::player() const {
    return basis.subject.video ? session.playback : session.source;
}

TranscriptRows::SpokenSubject TranscriptPage::subject() const {
    if (showsVideo()) return {{}, {}, session.openVideo()};
    if (session.held()) return {session.heldClip(), {}, {}};
    return {{}, session.heldSource(), {}};
}

QStringList TranscriptPage::scopes() const {
    QStringList list;
    if (const auto* clip = session.held())
        list.append(words(clip->tag()));
    else if (session.heldSource())
        list.append("Source");
    if (const auto* video = session.video()) list.append(words(video->tag()));
    return list;
}

int TranscriptPage::scope() const {
    return showsVideo() ? static_cast<int>(scopes().size()) - 1 : 0;
}

void TranscriptPage::setScope(int chosen) {
    commit();
    wantsVideo = session.video() && chosen == static_cast<int>(scopes().size()) - 1;
    refresh();
}

void TranscriptPage::followInspecting() {
    wantsVideo = session.inspecting() == Inspecting::timeline;
    refresh();
}

QString TranscriptPage::title() const {
    if (showsVideo()) return words(session.video()->tag() + " · " + session.video()->title);
    if (const auto* clip = session.held()) {
        auto line = clip->tag() + " · " + Timecode::clock(clip->length());
        if (clip->summary && clip->summary->kind) line += " · " + *clip->summary->kind;
        return words(line);
    }
    const auto* source = session.heldSource() ? session.project().source(*session.heldSource()) : nullptr;
    return source ? words(source->name() + " · " + Timecode::clock(source->length)) : "";
}

QString TranscriptPage::emptyWords() const {
    if (!text.rows().empty()) return "";
    const auto whose = subject();
    if (whose.video) return "Nothing is said in this video yet";
    return whose.clip || whose.source ? "Nothing said yet" : "Pick a clip in the browser";
}

bool TranscriptPage::canTranscribe() const {
    const auto whose = subject();
    return text.rows().empty() && (whose.clip || whose.source);
}

void TranscriptPage::transcribe() {
    std::vector<SourceStretch> wanted;
    if (const auto* clip = session.held())
        wanted.push_back({clip->source, {clip->start, clip->end}, clip->tag()});
    else if (session.heldSource())
        wanted = TranscribeCommands::stretches(session.project(), {*session.heldSource()});
    TranscribeCommands::transcribeQueue(session, std::move(wanted), false);
}

/// What is shown may be the same after a change: then nothing is worked out.
void TranscriptPage::refresh() {
    auto now =
        TranscriptRows::Basis::of(session.project(), subject(), session.openVideo(), Settings::quietLeast());
    if (now == basis) {
        emit shownChanged();
        return emit rangeChanged(); // a note needs a source that is held
    }
    if (now.subject != basis.subject) commit();
    const bool other = now.subject != basis.subject;
    basis = std::move(now);
    {
        const QScopedValueRollback moving(placing, true);
        text.assign(TranscriptRows::of(basis, orderedTranscripts));
    }
    if (other) {
        caret = {};
        anchorRow = -1;
    }
    caret.row = std::min(caret.row, static_cast<int>(text.rows().size()) - 1);
    refind();
    emit shownChanged();
    emit caretChanged();
    emit rangeChanged();
    followPlayer();
}

// ------------------------------------------------------------------------ typing --

void TranscriptPage::attach(QObject* given) {
    commit();
    area = given;
    typing.reset();
    auto* quick = given ? given->property("textDocument").value<QQuickTextDocument*>() : nullptr;
    const QScopedValueRollback moving(placing, true);
    text.attach(quick ? quick->textDocument() : nullptr);
    if (given) {
        auto watching = std::make_unique<TranscriptTyping>(*given, text, [this] { return isEditable(); });
        connect(watching.get(), &TranscriptTyping::left, this, &TranscriptPage::commit);
        typing = std::move(watching);
    }
    caret = {};
    acceptLetters();
    knownChanges = text.changeCount();
    if (spoken >= 0) emit caretWanted(text.position(spoken));
}

bool TranscriptPage::isEditable() const {
    return caret.first == caret.last && text.isEditable(caret.row);
}

/// Where nothing is to be typed, letters are commands: with lines selected, E puts them into the video.
void TranscriptPage::acceptLetters() {
    if (auto* item = qobject_cast<QQuickItem*>(area.data()))
        item->setFlag(QQuickItem::ItemAcceptsInputMethod, isEditable());
}

void TranscriptPage::commit() {
    const auto typed = text.takeTyped();
    if (!typed) return;
    const auto now = typed->text.toStdString();
    FootageCommands::correct(session, typed->line, typed->source, now);
    elsewhere.corrected(typed->before.toStdString(), now);
}

bool TranscriptPage::giveBack() {
    if (text.typedRow() < 0) return false;
    text.giveBack();
    return true;
}

void TranscriptPage::caretMoved(int position, int from, int to) {
    if (placing || text.isAssigning() || !text.text()) return;
    const bool heardOf = caret.position == position && caret.from == from && caret.to == to;
    if (heardOf && text.changeCount() == knownChanges) return; // three signals say one move
    const int rowBefore = caret.row;
    caret.position = position;
    caret.from = from;
    caret.to = to;
    caret.row = text.rowAt(position);
    caret.first = text.rowAt(from);
    caret.last = to > from ? text.rowAt(to) : caret.first;
    const auto endOfLast = text.text()->findBlock(to);
    // A caret that letters push along its line goes nowhere.
    const bool byTyping = text.changeCount() != std::exchange(knownChanges, text.changeCount());
    // A selection that ends where a line begins does not reach into it.
    if (caret.last > caret.first && to == endOfLast.position()) --caret.last;
    if (text.typedRow() >= 0 && text.typedRow() != caret.row) commit();
    acceptLetters();
    emit caretChanged();
    emit looksChanged();
    if (byTyping && caret.row == rowBefore) return;
    const auto block = text.text()->findBlock(from);
    const bool wholeRow =
        to > from && from == block.position() && to >= block.position() + block.length() - 1;
    if (caret.last > caret.first || wholeRow)
        pickRows();
    else if (to == from)
        seekTo(caret.row, position);
}

void TranscriptPage::pressed(int position, int from, int to) {
    if (from != to) return;
    caret.position = -1;
    caretMoved(position, from, to);
}

void TranscriptPage::seekTo(int row, int position) {
    if (row < 0 || !player().isLoaded()) return;
    const auto& line = text.rows()[row];
    const double share = SpokenWord::share(line.text, position - text.position(row));
    session.setFocus(basis.subject.video ? Viewer::video : Viewer::source);
    player().seek(line.from + (line.to - line.from) * share);
}

/// Lines of what is held make the range; a video's are shown where they are and mark nothing.
void TranscriptPage::pickRows() {
    if (caret.first < 0 || basis.subject.video) return;
    std::vector<Named::FoundLine> lines;
    for (int row = caret.first; row <= caret.last; ++row) {
        const auto& one = text.rows()[row];
        lines.push_back({one.source, {.id = one.id, .start = one.start, .end = one.end}});
    }
    session.setFocus(Viewer::source);
    FootageCommands::pick(session, lines);
}

void TranscriptPage::pressRow(int row, bool more) {
    if (row < 0 || row >= static_cast<int>(text.rows().size()) || !text.text()) return;
    if (!more || anchorRow < 0) anchorRow = row;
    const auto [first, last] = std::minmax(anchorRow, row);
    const auto end = text.text()->findBlockByNumber(last);
    emit selectionWanted(text.position(first), end.position() + end.length() - 1);
}

// ----------------------------------------------------------------------- the range --

std::optional<TranscriptPage::RowRange> TranscriptPage::marked() const {
    const auto range = session.range();
    if (!range || basis.subject.video) return {};
    const auto& rows = text.rows();
    const auto inRange = [&](const TranscriptRow& row) {
        return range->from <= row.middle() && row.middle() <= range->to;
    };
    const auto first = std::ranges::find_if(rows, inRange);
    if (first == rows.end()) return {};
    const auto after = std::find_if_not(first, rows.end(), inRange);
    return RowRange{static_cast<int>(first - rows.begin()), static_cast<int>(after - rows.begin()) - 1};
}

QString TranscriptPage::addWords() const {
    const auto rows = marked();
    if (!rows) return "Add to the End";
    int lines = 0;
    for (int row = rows->first; row <= rows->last; ++row) lines += text.rows()[row].note ? 0 : 1;
    return lines == 1 ? "Add 1 Line" : QString("Add %1 Lines").arg(lines);
}

bool TranscriptPage::canAdd() const {
    return marked().has_value();
}

bool TranscriptPage::canNote() const {
    return session.range() && session.heldSource();
}

void TranscriptPage::addLines() {
    commit();
    KeyCommands::perform(session, Command::addToEnd);
}

void TranscriptPage::addNote(const QString& note) {
    const auto clean = note.simplified();
    if (!clean.isEmpty()) MarkCommands::addNote(session, clean.toStdString());
}

// ---------------------------------------------------------------------- the player --

void TranscriptPage::followPlayer() {
    const auto& rows = text.rows();
    const double time = player().time();
    const auto next = std::ranges::upper_bound(rows, time, {}, &TranscriptRow::from);
    int row = -1;
    for (auto at = static_cast<int>(next - rows.begin()) - 1, least = at - lookBack; at >= std::max(least, 0);
         --at)
        if (!rows[at].note && time < rows[at].to) {
            row = at;
            break;
        }
    SpokenWord::SpokenRange now;
    if (row >= 0 && text.typedRow() != row) {
        const double length = std::max(rows[row].to - rows[row].from, 1e-6);
        now = SpokenWord::at(rows[row].text, (time - rows[row].from) / length);
    }
    if (row == spoken && now == word) return;
    const bool otherRow = row != spoken;
    spoken = row;
    word = now;
    const bool typingHere = area && area->property("activeFocus").toBool();
    if (otherRow && row >= 0 && !typingHere && player().rate() == 0) {
        const QScopedValueRollback moving(placing, true);
        emit caretWanted(text.position(row));
    }
    emit spokenChanged();
    emit looksChanged();
}

// ---------------------------------------------------------------------- searching --

/// The tab may not be up yet: it asks for the wish once it is.
void TranscriptPage::carryOut(const QString& verb) {
    if (verb == "transcript.correctEverywhere") {
        commit();
        return elsewhere.accept();
    }
    if (verb == "transcribe") return transcribe();
    if (verb != "transcript.search" && verb != "transcript.note" && verb != "transcript.copy") return;
    wish = verb.mid(verb.indexOf('.') + 1);
    emit tabWanted();
    emit wished();
}

void TranscriptPage::find(const QString& given) {
    sought = given.simplified();
    refind();
    hit = -1;
    if (!found.empty()) findNext(false);
}

void TranscriptPage::refind() {
    const auto before = found;
    found.clear();
    const auto& rows = text.rows();
    for (int at = 0; !sought.isEmpty() && at < static_cast<int>(rows.size()); ++at)
        if (rows[at].text.contains(sought, Qt::CaseInsensitive) ||
            rows[at].tag.compare(sought, Qt::CaseInsensitive) == 0)
            found.push_back(at);
    hit = std::min(hit, static_cast<int>(found.size()) - 1);
    if (found == before && !sought.isEmpty()) return;
    emit hitsChanged();
    emit looksChanged();
}

void TranscriptPage::findNext(bool back) {
    if (found.empty()) return;
    const auto count = static_cast<int>(found.size());
    if (hit < 0) {
        const auto next = std::ranges::lower_bound(found, std::max(caret.row, 0));
        hit = next == found.end() ? 0 : static_cast<int>(next - found.begin());
    } else {
        hit = (hit + (back ? count - 1 : 1)) % count;
    }
    goTo(found[hit]);
    emit hitsChanged();
}

void TranscriptPage::goTo(int row) {
    emit caretWanted(text.position(row));
    seekTo(row, text.position(row));
}

QString TranscriptPage::hitWords() const {
    if (sought.isEmpty()) return "";
    if (found.empty()) return "Not found";
    return QString("%1 of %2").arg(std::max(hit, 0) + 1).arg(found.size());
}

}
