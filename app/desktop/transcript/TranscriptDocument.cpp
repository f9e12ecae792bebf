#include "app/desktop/transcript/TranscriptDocument.h"

#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>

namespace murbo {
namespace {

constexpr int lineHeight = 130;   ///< percent: Thai's marks above and below need it
constexpr double between = 4;     ///< points after each row
constexpr double quietSpace = 22; ///< points of height for the words about a silence
constexpr int maxChanges = 400;   ///< rows from which writing all anew is quicker

bool looksAlike(const TranscriptRow& a, const TranscriptRow& b) {
    return a.text == b.text && a.note == b.note && (a.quiet > 0) == (b.quiet > 0);
}

QTextBlockFormat blockFormat(const TranscriptRow& row) {
    QTextBlockFormat format;
    format.setLineHeight(lineHeight, QTextBlockFormat::ProportionalHeight);
    format.setBottomMargin(between);
    format.setTopMargin(row.quiet > 0 ? quietSpace : 0);
    return format;
}

QTextCharFormat charFormat(const TranscriptRow& row) {
    QTextCharFormat format;
    format.setFontItalic(row.note);
    return format;
}

}

void TranscriptDocument::attach(QTextDocument* given) {
    if (document) document->disconnect(this);
    document = given;
    setTyped(-1);
    if (!document) return;
    document->setUndoRedoEnabled(false);
    connect(document, &QTextDocument::contentsChange, this,
            [this](int position, int, int) { noteTyping(position); });
    fill();
}

QTextDocument* TranscriptDocument::text() const {
    return document;
}

int TranscriptDocument::rowAt(int position) const {
    if (!document || shown.empty()) return -1;
    const auto block = document->findBlock(position);
    const int row = block.isValid() ? block.blockNumber() : -1;
    return row < static_cast<int>(shown.size()) ? row : -1;
}

int TranscriptDocument::position(int row) const {
    return document ? document->findBlockByNumber(row).position() : 0;
}

bool TranscriptDocument::isEditable(int row) const {
    if (row < 0 || row >= static_cast<int>(shown.size())) return false;
    return !shown[row].note && shown[row].whole;
}

// ------------------------------------------------------------------------- rows --

void TranscriptDocument::assign(std::vector<TranscriptRow> rows) {
    if (!document) {
        shown = std::move(rows);
        return;
    }
    const auto same = [](const TranscriptRow& a, const TranscriptRow& b) { return a.isSameAs(b); };
    const auto head = std::ranges::mismatch(shown, rows, same).in1 - shown.begin();
    const auto longest = static_cast<std::ptrdiff_t>(std::min(shown.size(), rows.size())) - head;
    std::ptrdiff_t tail = 0;
    while (tail < longest && same(*(shown.end() - 1 - tail), *(rows.end() - 1 - tail))) ++tail;
    const auto removed = static_cast<int>(static_cast<std::ptrdiff_t>(shown.size()) - head - tail);
    const auto inserted = static_cast<int>(static_cast<std::ptrdiff_t>(rows.size()) - head - tail);
    const bool anew = shown.empty() || rows.empty() || removed + inserted > maxChanges ||
                      (head == 0 && removed + inserted > 0);
    if (anew) {
        refill(std::move(rows));
    } else {
        const QScopedValueRollback writing(assigning, true);
        replaceMiddle(static_cast<int>(head), removed, rows, inserted);
        for (std::size_t at = 0; at < rows.size(); ++at) {
            const bool alike = looksAlike(shown[at], rows[at]);
            shown[at] = std::move(rows[at]);
            if (!alike && static_cast<int>(at) != typed) writeBlock(static_cast<int>(at));
        }
    }
    emit changed();
}

/// All of it anew. What was being typed goes on in the same line where that is still there.
void TranscriptDocument::refill(std::vector<TranscriptRow> rows) {
    const auto before = typed < 0 ? std::nullopt : std::optional(shown[typed]);
    const auto words = before ? document->findBlockByNumber(typed).text() : QString();
    shown = std::move(rows);
    fill();
    if (!before) return;
    const auto again =
        std::ranges::find_if(shown, [&](const TranscriptRow& row) { return row.isSameAs(*before); });
    if (again == shown.end()) return;
    const auto row = static_cast<int>(again - shown.begin());
    const QScopedValueRollback writing(assigning, true);
    writeText(row, words);
    setTyped(row);
}

void TranscriptDocument::fill() {
    if (!document) return;
    const QScopedValueRollback writing(assigning, true);
    setTyped(-1);
    QString text;
    for (const auto& row : shown) {
        if (&row != &shown.front()) text += '\n';
        text += row.text;
    }
    // In one edit, so that it is laid out once; blocks take the format of the one before.
    QTextCursor all(document);
    all.beginEditBlock();
    all.select(QTextCursor::Document);
    all.removeSelectedText();
    all.setBlockFormat(blockFormat({}));
    all.setBlockCharFormat({});
    all.insertText(text, {});
    auto block = document->begin();
    for (std::size_t at = 0; at < shown.size(); ++at, block = block.next())
        if (shown[at].note || shown[at].quiet > 0) dress(static_cast<int>(at));
    all.endEditBlock();
}

void TranscriptDocument::replaceMiddle(int first, int removed, const std::vector<TranscriptRow>& rows,
                                       int inserted) {
    if (removed + inserted == 0) return;
    QTextCursor cursor(document);
    cursor.beginEditBlock();
    if (removed > 0) {
        const auto last = document->findBlockByNumber(first + removed - 1);
        const auto before = document->findBlockByNumber(first - 1);
        cursor.setPosition(before.position() + before.length() - 1);
        cursor.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        shown.erase(shown.begin() + first, shown.begin() + first + removed);
        if (typed >= first + removed)
            typed -= removed;
        else if (typed >= first)
            setTyped(-1);
    }
    for (int at = first; at < first + inserted; ++at) {
        const auto before = document->findBlockByNumber(at - 1);
        cursor.setPosition(before.position() + before.length() - 1);
        cursor.insertBlock(blockFormat(rows[at]), charFormat(rows[at]));
        cursor.insertText(rows[at].text, charFormat(rows[at]));
        shown.insert(shown.begin() + at, rows[at]);
    }
    if (typed >= first) typed += inserted;
    cursor.endEditBlock();
}

/// Brings a block to what its row says.
void TranscriptDocument::writeBlock(int row) {
    writeText(row, shown[row].text);
    dress(row);
}

void TranscriptDocument::writeText(int row, const QString& text) {
    const auto block = document->findBlockByNumber(row);
    if (block.text() == text) return;
    QTextCursor cursor(block);
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.insertText(text, charFormat(shown[row]));
}

void TranscriptDocument::dress(int row) {
    QTextCursor cursor(document->findBlockByNumber(row));
    cursor.setBlockFormat(blockFormat(shown[row]));
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    cursor.setCharFormat(charFormat(shown[row]));
}

// ----------------------------------------------------------------------- typing --

void TranscriptDocument::setTyped(int row) {
    if (row == typed) return;
    typed = row;
    emit typedChanged();
}

/// Somebody typed. A change that joined or broke rows is none that a transcript knows: it is put right once
/// the document has come to rest.
void TranscriptDocument::noteTyping(int position) {
    if (assigning || !document) return;
    ++changes;
    const int blocks = document->blockCount();
    if (blocks != std::max(static_cast<int>(shown.size()), 1) || shown.empty()) {
        QMetaObject::invokeMethod(
            this, [this] { fill(); }, Qt::QueuedConnection);
        return;
    }
    const int row = rowAt(position);
    if (row < 0) return;
    const bool differs = document->findBlockByNumber(row).text() != shown[row].text;
    if (differs)
        setTyped(row);
    else if (typed == row)
        setTyped(-1);
}

std::optional<TranscriptDocument::TypedLine> TranscriptDocument::takeTyped() {
    if (typed < 0 || !document) return {};
    const int row = typed;
    const auto text = document->findBlockByNumber(row).text();
    setTyped(-1);
    // A line that says nothing is no correction.
    if (text.trimmed().isEmpty() || text.trimmed() == shown[row].text.trimmed() || !isEditable(row)) {
        const QScopedValueRollback writing(assigning, true);
        writeBlock(row);
        return {};
    }
    return TypedLine{shown[row].id, shown[row].source, shown[row].text, text.trimmed()};
}

void TranscriptDocument::giveBack() {
    if (typed < 0 || !document) return;
    const int row = typed;
    setTyped(-1);
    const QScopedValueRollback writing(assigning, true);
    writeBlock(row);
}

}
