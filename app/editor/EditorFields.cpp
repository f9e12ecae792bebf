#include "app/editor/EditorFields.h"

#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

namespace murbo {

EditorFields::EditorFields(QObject* parent) : QObject(parent) {
    const auto& settings = SettingsStore::standard();
    values.skimming = settings.boolean("skimming").value_or(true);
    values.snapping = settings.boolean("snapping").value_or(true);
    values.headers = settings.boolean("trackHeaders").value_or(true);
}

void EditorFields::keep(const char* key, bool& field, bool value, void (EditorFields::*changed)()) {
    if (field == value) return;
    set(field, value, changed);
    try {
        SettingsStore::standard().set(key, value);
    } catch (const Problem&) {
        return; // it holds for this session; the next change is tried again
    }
}

}
