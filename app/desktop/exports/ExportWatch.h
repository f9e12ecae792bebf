#pragma once

#include "app/desktop/services/SleepInhibitor.h"

#include <QObject>

class QWindow;

namespace murbo {

class ExportQueue;

/// What the system is asked for while movies are made: not to sleep, and to say how one ended while nobody
/// looks at the window.
class ExportWatch : public QObject {
    Q_OBJECT

public:
    ExportWatch(ExportQueue& exports, QWindow& window, QObject* parent = nullptr);

private:
    void follow();

    ExportQueue& exports;
    SleepInhibitor awake;
};

}
