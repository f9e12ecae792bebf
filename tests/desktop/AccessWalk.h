#pragma once

#include "app/desktop/access/AccessTree.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <functional>
#include <set>
#include <string>

namespace murbo {

/// What keeps somebody without a mouse, or without eyes, from using a window. One line a fault; empty where
/// there is none.
namespace AccessWalk {

constexpr int leastTarget = 24; ///< points

inline std::string shown(const AccessNode& node) {
    return node.role.toStdString() + " “" + node.name.toStdString() + "” " +
           std::to_string(node.place.width()) + " x " + std::to_string(node.place.height());
}

/// What is pressed, typed into or moved. Rows of lists and blocks are as high as what they stand for.
inline bool isControl(const AccessNode& node) {
    static const std::set<QString> roles{"Button",   "CheckBox", "RadioButton", "Slider",  "EditableText",
                                         "ComboBox", "PageTab",  "PageTabList", "MenuItem"};
    return roles.contains(node.role);
}

/// Of everything that a screen reader meets: a name and a role; of every control: a size to hit.
inline std::string faults(QQuickWindow& window) {
    const QRect whole(window.position(), window.size());
    std::string found;
    for (const auto& node : AccessTree::of(window)) {
        if (node.depth == 0 || !whole.intersects(node.place)) continue;
        if (node.name.isEmpty()) found += shown(node) + " has no name\n";
        if (node.role == "NoRole" || node.role == "Client") found += shown(node) + " has no role\n";
        if (!isControl(node)) continue;
        if (node.place.width() < leastTarget || node.place.height() < leastTarget)
            found += shown(node) + " is too small\n";
        if (node.place.left() < whole.left() || node.place.right() > whole.right())
            found += shown(node) + " is cut off\n";
    }
    return found;
}

/// Whether keys get there: by Tab, or by the arrows of the list or the tabs that it lies in.
inline bool takesKeys(const QQuickItem& item) {
    return item.activeFocusOnTab() || item.property("takesArrows").toBool() ||
           item.property("takesKeys").toBool();
}

/// What takes presses and lies in nothing that keys get to.
inline std::string pressedByMouseAlone(const QQuickWindow& window) {
    std::string found;
    // A splitter, a bar that keys scroll too, a veil: what is marked as beside has its keys elsewhere.
    const auto aside = [](const QQuickItem& item) {
        const QString type = item.metaObject()->className();
        return type.startsWith("Splitter") || type.startsWith("ScrollMark") ||
               item.property("beside").toBool();
    };
    const std::function<void(const QQuickItem&, bool)> walk = [&](const QQuickItem& item, bool reached) {
        if (!item.isVisible() || aside(item)) return;
        reached = reached || takesKeys(item);
        if (item.inherits("QQuickMouseArea") && item.isEnabled() && !reached) {
            const auto* in = item.parentItem();
            found += std::string(in ? in->metaObject()->className() : "?") + " at " +
                     std::to_string(static_cast<int>(item.mapToScene({}).x())) + ", " +
                     std::to_string(static_cast<int>(item.mapToScene({}).y())) + "\n";
        }
        for (const auto* child : item.childItems()) walk(*child, reached);
    };
    walk(*window.contentItem(), false);
    return found;
}

}

}
