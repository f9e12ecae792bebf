#include "app/desktop/transcript/CorrectionOffer.h"

#include "app/editor/Editor.h"
#include "app/editor/commands/FootageCommands.h"

namespace murbo {

CorrectionOffer::CorrectionOffer(Editor& open) : session(open) {
    connect(&session, &Editor::historyChanged, this, &CorrectionOffer::followHistory);
}

QString CorrectionOffer::words() const {
    if (waiting.empty()) return "";
    const auto from = QString::fromStdString(waiting.front().from);
    return QString("“%1” stands at %2 other place%3").arg(from).arg(places).arg(places == 1 ? "" : "s");
}

void CorrectionOffer::corrected(const std::string& before, const std::string& now) {
    waiting = WordCorrection::between(before, now);
    after = session.history().past().size();
    next();
}

/// Brings up the first that stands anywhere.
void CorrectionOffer::next() {
    while (!waiting.empty() && (places = waiting.front().places(session.project())) == 0)
        waiting.erase(waiting.begin());
    emit changed();
}

/// With the correction undone there is nothing to follow it.
void CorrectionOffer::followHistory() {
    if (!waiting.empty() && session.history().past().size() < after) drop();
}

void CorrectionOffer::accept() {
    if (waiting.empty()) return session.refuse("Correct a word in the transcript first");
    const auto word = waiting.front();
    waiting.erase(waiting.begin());
    FootageCommands::correctEverywhere(session, word);
    next();
}

void CorrectionOffer::drop() {
    waiting.clear();
    emit changed();
}

}
