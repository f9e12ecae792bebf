#include "app/desktop/transcript/TranscriptTyping.h"

#include "app/desktop/transcript/TranscriptDocument.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

namespace murbo {
namespace {

/// Words that fit into a line: what would end it is a blank.
QString oneLine(QString text) {
    for (auto& unit : text)
        if (unit.category() == QChar::Other_Control || unit == QChar::LineSeparator ||
            unit == QChar::ParagraphSeparator)
            unit = QLatin1Char(' ');
    return text;
}

/// Whether a key moves the caret, selects or copies, and changes nothing.
bool walks(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
            return true;
        default:
            return event.matches(QKeySequence::Copy) || event.matches(QKeySequence::SelectAll);
    }
}

bool isNewLine(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

}

TranscriptTyping::TranscriptTyping(QObject& watched, const TranscriptDocument& shown,
                                   std::function<bool()> canEdit)
    : area(watched), text(shown), editable(std::move(canEdit)) {
    area.installEventFilter(this);
}

bool TranscriptTyping::eventFilter(QObject*, QEvent* event) {
    if (passing) return false;
    if (event->type() == QEvent::KeyPress) return press(static_cast<const QKeyEvent&>(*event));
    if (event->type() == QEvent::InputMethod) return compose(static_cast<const QInputMethodEvent&>(*event));
    if (event->type() == QEvent::FocusOut) emit left();
    return false;
}

bool TranscriptTyping::press(const QKeyEvent& event) {
    if (isNewLine(event)) {
        emit left();
        return true;
    }
    if (!editable()) return !walks(event);
    if (event.matches(QKeySequence::Paste)) {
        paste();
        return true;
    }
    return leavesLine(event);
}

/// Whether a key would take away the end of a line or of the one before it.
bool TranscriptTyping::leavesLine(const QKeyEvent& event) const {
    const int from = area.property("selectionStart").toInt();
    const int to = area.property("selectionEnd").toInt();
    if (to > from) return false;
    const auto block = text.text()->findBlock(from);
    const int place = from - block.position();
    if (event.key() == Qt::Key_Backspace) return place == 0;
    return event.key() == Qt::Key_Delete && place == block.length() - 1;
}

void TranscriptTyping::paste() {
    const int from = area.property("selectionStart").toInt();
    const int to = area.property("selectionEnd").toInt();
    const auto words = oneLine(QGuiApplication::clipboard()->text().trimmed());
    QMetaObject::invokeMethod(&area, "remove", Q_ARG(int, from), Q_ARG(int, to));
    QMetaObject::invokeMethod(&area, "insert", Q_ARG(int, from), Q_ARG(QString, words));
}

/// A line that an input method ends goes in as one line.
bool TranscriptTyping::compose(const QInputMethodEvent& event) {
    if (!editable()) return !event.commitString().isEmpty() || !event.preeditString().isEmpty();
    const auto clean = oneLine(event.commitString());
    if (clean == event.commitString()) return false;
    QInputMethodEvent other(event.preeditString(), event.attributes());
    other.setCommitString(clean, event.replacementStart(), event.replacementLength());
    const QScopedValueRollback own(passing, true);
    QCoreApplication::sendEvent(&area, &other);
    return true;
}

}
