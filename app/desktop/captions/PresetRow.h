#pragma once

#include <QByteArray>
#include <QHash>
#include <QImage>
#include <QString>
#include <QVariant>
#include <string>

namespace murbo {

/// One caption style to choose, with its picture.
struct PresetRow {
    std::string id;
    QString name;
    QImage picture; ///< null until it is drawn
    bool chosen = false;

    bool operator==(const PresetRow& other) const {
        return id == other.id && name == other.name && chosen == other.chosen &&
               picture.cacheKey() == other.picture.cacheKey();
    }
    static QHash<int, QByteArray> roles();
    QVariant value(int role) const;
};

}
