#pragma once

#include "platform/base/UUID.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QVariant>
#include <optional>
#include <string>

namespace murbo {

/// One thing in the browser: a clip, a source, a video or a bookmark.
struct BrowserRow {
    enum class Kind { clip, source, video, bookmark };

    std::string id;
    Kind kind = Kind::clip;
    UUID record;
    QString title;
    QString tag;
    QString detail; ///< what it is, in a few words
    QString note;   ///< what is said or seen, or why it could not be transcribed
    QString length;
    std::optional<UUID> source; ///< whose still it shows
    double from = 0;            ///< seconds on the source that its stills come from
    double to = 0;
    int rating = 0;
    bool missing = false;
    bool picked = false;
    bool held = false;
    bool hearing = false; ///< it is being transcribed
    bool failed = false;  ///< it could not be

    bool operator==(const BrowserRow&) const = default;
    static QString name(Kind kind);
    static QHash<int, QByteArray> roles();
    QVariant value(int role) const;
};

}
