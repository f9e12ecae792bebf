#pragma once

#include "app/desktop/transcript/TranscriptRow.h"

#include <QObject>
#include <QPointer>
#include <optional>
#include <vector>

class QTextDocument;

namespace murbo {

/// A transcript as one text, a block a row. New rows change only the blocks that differ, so that caret,
/// selection and scrolling stay where they are; what is being typed into a block stays until it is taken or
/// given back. The document keeps no undo of its own: the project's holds.
class TranscriptDocument : public QObject {
    Q_OBJECT

public:
    /// What was typed over a line.
    struct TypedLine {
        UUID line;
        UUID source;
        QString before; ///< what it said
        QString text;
    };

    using QObject::QObject;

    /// The document to write into; it is emptied.
    void attach(QTextDocument* document);
    void assign(std::vector<TranscriptRow> rows);

    const std::vector<TranscriptRow>& rows() const { return shown; }
    /// Whether it is being changed by `assign`, so that what a view hears is nobody's doing.
    bool isAssigning() const { return assigning; }
    QTextDocument* text() const;

    /// Counts the changes of the text that somebody typed.
    int changeCount() const { return changes; }

    /// The row at a place of the document; -1 where there is none.
    int rowAt(int position) const;
    /// Where a row begins.
    int position(int row) const;
    /// Whether a row may be typed in.
    bool isEditable(int row) const;

    /// The row that was typed in and not yet taken; -1 for none.
    int typedRow() const { return typed; }
    /// Takes what was typed; the block shows it until rows come that say otherwise. Nothing where it is what
    /// the line said before.
    std::optional<TypedLine> takeTyped();
    /// Puts back what the line said.
    void giveBack();

signals:
    void typedChanged();
    /// Rows came, or looks of them.
    void changed();

private:
    void fill();
    void refill(std::vector<TranscriptRow> rows);
    void replaceMiddle(int first, int removed, const std::vector<TranscriptRow>& rows, int inserted);
    void writeBlock(int row);
    void writeText(int row, const QString& text);
    void dress(int row);
    void noteTyping(int position);
    void setTyped(int row);

    QPointer<QTextDocument> document;
    std::vector<TranscriptRow> shown;
    int typed = -1;
    int changes = 0;
    bool assigning = false;
};

}
