#pragma once

#include <QPointF>

#include <qnamespace.h>

namespace murbo {

/// Where an arrow key points: one step along an axis, x to the right, y down.
namespace ArrowStep {

/// Null for every other key.
inline QPointF of(int key) {
    switch (key) {
        case Qt::Key_Left:
            return {-1, 0};
        case Qt::Key_Right:
            return {1, 0};
        case Qt::Key_Up:
            return {0, -1};
        case Qt::Key_Down:
            return {0, 1};
        default:
            return {};
    }
}

}

}
