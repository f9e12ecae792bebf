#pragma once

#include <QObject>
#include <functional>

class QInputMethodEvent;
class QKeyEvent;

namespace murbo {

class TranscriptDocument;

/// What keys and input methods may do to the text of a transcript: correct a line, never join, break or
/// remove one. It watches the text area from its making to its end.
class TranscriptTyping : public QObject {
    Q_OBJECT

public:
    /// `editable` says whether what is typed now corrects a line.
    TranscriptTyping(QObject& area, const TranscriptDocument& text, std::function<bool()> editable);

signals:
    /// The line is done with.
    void left();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool press(const QKeyEvent& event);
    bool compose(const QInputMethodEvent& event);
    bool leavesLine(const QKeyEvent& event) const;
    void paste();

    QObject& area;
    const TranscriptDocument& text;
    std::function<bool()> editable;
    bool passing = false; ///< an event of its own goes through
};

}
