#pragma once

#include <QRect>
#include <QString>

namespace murbo {

/// One thing that a screen reader meets in a window.
struct AccessNode {
    int depth = 0; ///< 0 for the window itself; what comes next and deeper lies in it
    QString role;  ///< as Qt names it, "Button"
    QString name;
    QString description;
    QString value;
    QRect place; ///< on the screen, in points
    bool focusable = false;
    bool focused = false;
    bool enabled = true;
    bool checked = false;
    bool selected = false;
};

}
