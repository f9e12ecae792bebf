#include "app/desktop/exports/ExportWatch.h"

#include "app/desktop/exports/ExportQueue.h"
#include "app/desktop/services/Notice.h"

#include <QWindow>

namespace murbo {

ExportWatch::ExportWatch(ExportQueue& queue, QWindow& window, QObject* parent)
    : QObject(parent), exports(queue) {
    connect(&exports, &ExportQueue::changed, this, &ExportWatch::follow);
    connect(&exports, &ExportQueue::said, &window, [&window](const QString& words) {
        if (!window.isActive()) Notice::show(window.title(), words);
    });
}

void ExportWatch::follow() {
    if (exports.running())
        awake.hold("Exporting " + exports.title());
    else
        awake.release();
}

}
