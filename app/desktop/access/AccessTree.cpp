#include "app/desktop/access/AccessTree.h"

#include <QAccessible>
#include <QMetaEnum>
#include <QWindow>

namespace murbo {
namespace {

constexpr int deepest = 100; ///< a tree that goes deeper goes round in a circle

QString value(QAccessibleInterface& thing) {
    auto* range = thing.valueInterface();
    return range ? range->currentValue().toString() : thing.text(QAccessible::Value);
}

AccessNode node(QAccessibleInterface& thing, int depth) {
    const auto state = thing.state();
    AccessNode made;
    made.depth = depth;
    made.role = QMetaEnum::fromType<QAccessible::Role>().valueToKey(thing.role());
    made.name = thing.text(QAccessible::Name);
    made.description = thing.text(QAccessible::Description);
    made.value = value(thing);
    made.place = thing.rect();
    made.focusable = state.focusable;
    made.focused = state.focused;
    // Qt 6.4 leaves it out of the state of what is not enabled.
    const auto* object = thing.object();
    made.enabled = !state.disabled && (!object || object->property("enabled") != QVariant(false));
    made.checked = state.checked;
    made.selected = state.selected;
    return made;
}

void walk(QAccessibleInterface* thing, int depth, std::vector<AccessNode>& found) {
    if (!thing || !thing->isValid() || depth > deepest || thing->state().invisible) return;
    found.push_back(node(*thing, depth));
    for (int at = 0; at < thing->childCount(); ++at) walk(thing->child(at), depth + 1, found);
}

}

std::vector<AccessNode> AccessTree::of(QWindow& window) {
    std::vector<AccessNode> found;
    walk(QAccessible::queryAccessibleInterface(&window), 0, found);
    return found;
}

}
