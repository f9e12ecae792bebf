#include "app/desktop/access/BlockAccess.h"

#include "app/desktop/access/TimelineWords.h"
#include "app/desktop/timeline/TimelineView.h"

#include <QQuickWindow>

namespace murbo {

const TimelineBlock* BlockAccess::block() const {
    const auto& blocks = view.shown().blocks;
    return at < static_cast<int>(blocks.size()) ? &blocks[static_cast<std::size_t>(at)] : nullptr;
}

bool BlockAccess::picked() const {
    const auto* editor = view.editor();
    return editor && TimelinePicks::isPicked(*editor, block()->pick);
}

QWindow* BlockAccess::window() const {
    return view.window();
}

QAccessibleInterface* BlockAccess::parent() const {
    return QAccessible::queryAccessibleInterface(&view);
}

QString BlockAccess::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Name || !block()) return {};
    return QString::fromStdString(TimelineWords::block(view.shown(), *block(), picked()));
}

QRect BlockAccess::rect() const {
    if (!block()) return {};
    const auto place = view.placeOf(*block()).intersected(QRectF(0, 0, view.width(), view.height()));
    const auto corner = view.mapToGlobal(place.topLeft());
    return QRectF(corner, place.size()).toRect();
}

QAccessible::State BlockAccess::state() const {
    QAccessible::State state;
    if (!block()) {
        state.invalid = true;
        return state;
    }
    const auto* editor = view.editor();
    state.selectable = block()->pickable;
    state.multiSelectable = block()->pickable;
    state.selected = picked();
    state.focusable = true;
    state.focused = view.hasActiveFocus() && editor && editor->picked() == block()->pick;
    state.offscreen = rect().isEmpty();
    return state;
}

void* BlockAccess::interface_cast(QAccessible::InterfaceType type) {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList BlockAccess::actionNames() const {
    return {pressAction(), showMenuAction()};
}

void BlockAccess::doAction(const QString& name) {
    if (!block()) return;
    view.pickBlock(*block());
    if (name == showMenuAction()) view.askMenu();
}

}
