#include "app/desktop/access/TimelineAccess.h"

#include "app/desktop/access/BlockAccess.h"
#include "app/desktop/access/TimelineWords.h"
#include "app/desktop/timeline/TimelineView.h"

#include <QQuickWindow>
#include <algorithm>

namespace murbo {
namespace {

QAccessibleInterface* make(const QString& type, QObject* object) {
    if (type != "murbo::TimelineView") return nullptr;
    return new TimelineAccess(*qobject_cast<TimelineView*>(object));
}

/// Whether an item has been given a role or a name.
bool isNamed(const QQuickItem& item) {
    return std::ranges::any_of(item.children(),
                               [](const QObject* one) { return one->inherits("QQuickAccessibleAttached"); });
}

}

void TimelineAccess::install() {
    static const bool once = [] {
        QAccessible::installFactory(make);
        return true;
    }();
    static_cast<void>(once);
}

TimelineAccess::TimelineAccess(TimelineView& timeline) : QAccessibleObject(&timeline) {
    follow();
}

TimelineAccess::~TimelineAccess() {
    for (const auto id : blocks)
        if (id) QAccessible::deleteAccessibleInterface(id);
}

TimelineView& TimelineAccess::view() const {
    return static_cast<TimelineView&>(*object());
}

/// A block that gets picked is the one that is read out.
void TimelineAccess::follow() {
    auto* item = &view();
    const auto say = [item] {
        if (auto* list = dynamic_cast<TimelineAccess*>(QAccessible::queryAccessibleInterface(item)))
            if (const auto event = list->walkedTo()) QAccessible::updateAccessibility(event.get());
    };
    QObject::connect(item, &TimelineView::blockWalked, item, say);
}

std::unique_ptr<QAccessibleEvent> TimelineAccess::walkedTo() const {
    const auto& list = view().shown().blocks;
    const auto* editor = view().editor();
    if (!editor || !editor->picked()) return {};
    const auto found = std::ranges::find(list, *editor->picked(), &TimelineBlock::pick);
    if (found == list.end()) return {};
    auto event = std::make_unique<QAccessibleEvent>(object(), QAccessible::Focus);
    event->setChild(static_cast<int>(found - list.begin()));
    return event;
}

QAccessibleInterface* TimelineAccess::parent() const {
    for (auto* item = view().parentItem(); item; item = item->parentItem())
        if (isNamed(*item)) return QAccessible::queryAccessibleInterface(item);
    return QAccessible::queryAccessibleInterface(view().window());
}

int TimelineAccess::childCount() const {
    return view().blockCount();
}

QAccessibleInterface* TimelineAccess::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    const auto at = static_cast<std::size_t>(index);
    if (at >= blocks.size()) blocks.resize(static_cast<std::size_t>(childCount()));
    if (!blocks[at]) blocks[at] = QAccessible::registerAccessibleInterface(new BlockAccess(view(), index));
    return QAccessible::accessibleInterface(blocks[at]);
}

QAccessibleInterface* TimelineAccess::childAt(int x, int y) const {
    const auto point = view().mapFromGlobal(QPointF(x, y));
    const auto& list = view().shown().blocks;
    const auto found =
        std::ranges::find_if(list, [&](const auto& block) { return view().placeOf(block).contains(point); });
    return found == list.end() ? nullptr : child(static_cast<int>(found - list.begin()));
}

QAccessibleInterface* TimelineAccess::focusChild() const {
    const auto& list = view().shown().blocks;
    const auto* editor = view().editor();
    if (!editor || !editor->picked() || !view().hasActiveFocus()) return nullptr;
    const auto found = std::ranges::find(list, *editor->picked(), &TimelineBlock::pick);
    return found == list.end() ? nullptr : child(static_cast<int>(found - list.begin()));
}

int TimelineAccess::indexOfChild(const QAccessibleInterface* given) const {
    const auto* block = dynamic_cast<const BlockAccess*>(given);
    return block ? block->place() : -1;
}

QString TimelineAccess::text(QAccessible::Text kind) const {
    const auto* editor = view().editor();
    if (kind != QAccessible::Name || !editor) return {};
    return QString::fromStdString(TimelineWords::list(editor->video()));
}

QRect TimelineAccess::rect() const {
    return QRectF(view().mapToGlobal(QPointF(0, 0)), view().size()).toRect();
}

QAccessible::State TimelineAccess::state() const {
    QAccessible::State state;
    state.focusable = true;
    state.focused = view().hasActiveFocus();
    state.multiSelectable = true;
    state.invisible = !view().isVisible();
    return state;
}

QWindow* TimelineAccess::window() const {
    return view().window();
}

}
