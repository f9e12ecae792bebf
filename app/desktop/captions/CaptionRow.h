#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVariant>
#include <string>

namespace murbo {

/// One caption in the list of a video's captions.
struct CaptionRow {
    std::string id; ///< of its line, its piece and its place among those that show the same
    QString time;
    QString text;
    bool big = false;
    bool hidden = false;
    bool broken = false; ///< a piece of a line
    bool byHand = false; ///< of a line that was broken by hand
    bool picked = false;
    bool current = false; ///< the playhead is in it

    bool operator==(const CaptionRow&) const = default;
    static QHash<int, QByteArray> roles();
    QVariant value(int role) const;
};

}
