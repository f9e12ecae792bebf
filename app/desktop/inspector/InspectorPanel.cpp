#include "app/desktop/inspector/InspectorPanel.h"

#include "app/editor/Editor.h"
#include "platform/base/Problem.h"
#include "platform/base/RawText.h"
#include "platform/store/SettingsStore.h"

#include <algorithm>
#include <iterator>

namespace murbo {
namespace {

constexpr const char* shownKey = "inspectorShown";

/// THE list of tabs. Each has an action "tab.<id>", which gives it its keys.
struct PanelTab {
    InspectorTab tab;
    const char* title;
    const char* file;
};
constexpr PanelTab panelTabs[] = {
    {InspectorTab::inspector, "Inspector", "InspectorTab.qml"},
    {InspectorTab::transcript, "Transcript", "TranscriptTab.qml"},
    {InspectorTab::captions, "Captions", "CaptionsTab.qml"},
};

QString idOf(InspectorTab tab) {
    const auto raw = rawText(tab);
    return QString::fromUtf8(raw.data(), static_cast<qsizetype>(raw.size()));
}

bool saysOpen(const QString& key) {
    return key.endsWith(".open");
}

}

InspectorPanel::InspectorPanel(Editor& session)
    : editor(session), isShown(SettingsStore::standard().boolean(shownKey).value_or(true)) {
    connect(&editor, &Editor::inspectorTabChanged, this, &InspectorPanel::tabChanged);
}

QVariantList InspectorPanel::tabs() const {
    QVariantList list;
    for (const auto& [tab, title, file] : panelTabs)
        list.append(QVariantMap{{"id", idOf(tab)}, {"title", title}, {"file", file}});
    return list;
}

int InspectorPanel::tab() const {
    const auto up = editor.inspectorTab();
    const auto* found = std::ranges::find(panelTabs, up, &PanelTab::tab);
    return found == std::end(panelTabs) ? 0 : static_cast<int>(found - panelTabs);
}

void InspectorPanel::choose(int tab) {
    if (tab < 0 || tab >= std::ssize(panelTabs)) return;
    editor.setInspectorTab(panelTabs[tab].tab);
    show(true);
}

void InspectorPanel::toggle() {
    show(!isShown);
}

void InspectorPanel::carryOut(const QString& verb) {
    if (verb == "inspector") return toggle();
    for (int tab = 0; tab < std::ssize(panelTabs); ++tab)
        if (verb == "tab." + idOf(panelTabs[tab].tab)) choose(tab);
}

void InspectorPanel::show(bool shown) {
    if (shown == isShown) return;
    isShown = shown;
    emit shownChanged();
    keep(shownKey, shown);
}

bool InspectorPanel::isOpen(const QString& key) const {
    const auto kept = SettingsStore::standard().boolean(key.toStdString());
    return saysOpen(key) ? kept.value_or(false) : !kept.value_or(false);
}

void InspectorPanel::setOpen(const QString& key, bool open) {
    keep(key, saysOpen(key) ? open : !open);
}

/// Remembering is a comfort: where it can't be, the owner hears of it and works on.
void InspectorPanel::keep(const QString& key, bool value) try {
    SettingsStore::standard().set(key.toStdString(), value);
} catch (const Problem& problem) {
    editor.refuse(problem.message());
}

}
