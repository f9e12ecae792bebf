#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>
#include <QVariant>
#include <string>
#include <vector>

namespace murbo {

/// One line of the inspector: something about what is picked, and the control that sets it.
struct InspectorRow {
    enum class Control {
        section,
        words,
        text,
        lines,
        number,
        time,
        choice,
        toggle,
        colour,
        media,
        button,
        layouts,
        picture,
        wave
    };

    std::string id;
    std::string section; ///< id of the section that it stands in; empty above them all
    Control control = Control::words;
    QString name;
    QVariant current;     ///< number, seconds, text, truth, or the place of the chosen option
    bool changed = false; ///< it is not at its standard
    bool mixed = false;   ///< what is picked has several values
    double from = 0;      ///< of a number: the ends and the step of its slider; from `to` on it has none
    double to = 0;
    double step = 0.01;
    QString unit;
    QStringList options; ///< of a choice

    bool operator==(const InspectorRow&) const = default;
    static QHash<int, QByteArray> roles();
    QVariant value(int role) const;
};

using InspectorRowList = std::vector<InspectorRow>;

}
