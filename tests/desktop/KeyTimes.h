#pragma once

#include <QKeyEvent>
#include <QQuickWindow>
#include <map>

namespace murbo {

/// Dates what lets a window's keys go by how long they are meant to be held, however slow the window is.
class KeyTimes : public QObject {
public:
    int held = 50; ///< ms

    void follow(QQuickWindow& window) { window.installEventFilter(this); }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
        auto& key = static_cast<QKeyEvent&>(*event);
        if (event->type() == QEvent::KeyPress) pressed[key.key()] = key.timestamp();
        if (event->type() == QEvent::KeyRelease)
            key.setTimestamp(pressed[key.key()] + static_cast<quint64>(held));
        return false;
    }

private:
    std::map<int, quint64> pressed;
};

}
