#include "app/desktop/documents/HistorySheet.h"

#include "app/editor/Editor.h"

#include <algorithm>

namespace murbo {
namespace {

/// The steps that a model has made.
constexpr std::string_view models[] = {"Find Ideas", "Revise Cuts", "Look by AI", "Sound by AI"};

QVariantMap row(const std::string& name, bool undone) {
    return {{"name", QString::fromStdString(name)},
            {"undone", undone},
            {"byModel", std::ranges::find(models, name) != std::end(models)}};
}

}

HistorySheet::HistorySheet(Editor& session, QObject* parent) : QObject(parent), editor(session) {
    connect(&editor, &Editor::historyChanged, this, &HistorySheet::changed);
}

QVariantList HistorySheet::steps() const {
    const auto& history = editor.history();
    QVariantList list;
    list.append(
        row(history.past().size() < History::maxSteps ? "As it was opened first" : "As far back as it goes",
            false));
    for (const auto& step : history.past()) list.append(row(step.name, false));
    const auto& undone = history.future();
    for (auto step = undone.rbegin(); step != undone.rend(); ++step) list.append(row(step->name, true));
    return list;
}

int HistorySheet::now() const {
    return static_cast<int>(editor.history().past().size());
}

void HistorySheet::go(int row) {
    editor.closeDrag();
    const int last = now() + static_cast<int>(editor.history().future().size());
    const int wanted = std::clamp(row, 0, last);
    // Each step moves by one; one that does not would be tried for ever.
    for (int before = -1; now() != wanted && now() != before;) {
        before = now();
        if (before > wanted)
            editor.undo();
        else
            editor.redo();
    }
}

}
