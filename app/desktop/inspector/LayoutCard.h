#pragma once

#include <QByteArray>
#include <QHash>
#include <QImage>
#include <QVariant>
#include <string>

namespace murbo {

/// A layout that a shot can have, with the frame at the playhead in it.
struct LayoutCard {
    std::string id; ///< the raw text of a layout, or the id of a playbook
    QString name;
    QImage picture; ///< none until it is drawn

    bool operator==(const LayoutCard&) const = default;
    static QHash<int, QByteArray> roles();
    QVariant value(int role) const;
};

}
