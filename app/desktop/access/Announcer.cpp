#include "app/desktop/access/Announcer.h"

#include <QAccessible>

namespace murbo {

/// As Qt's bridge has it nobody is given an event for alerts; an alert that is shown is read out.
void Announcer::say(QObject* item) {
    if (!item) return;
    QAccessibleEvent event(item, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&event);
    emit said(item);
}

}
