#include "app/desktop/access/Announcer.h"

#include <QAccessible>

namespace murbo {

void Announcer::say(QObject* item) const {
    if (!item) return;
    QAccessibleEvent event(item, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

}
