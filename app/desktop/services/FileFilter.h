#pragma once

#include <QDBusArgument>
#include <QList>
#include <QMetaType>
#include <QString>
#include <QStringList>

namespace murbo {

/// One pattern of a filter: 0 for one of file names, and the pattern.
struct FilePattern {
    uint type = 0;
    QString text;
    bool operator==(const FilePattern&) const = default;
};

/// A kind of file that the system's dialog offers: its name there, and the endings that count.
struct FileFilter {
    QString name;
    QList<FilePattern> patterns;

    /// What is offered to one who chooses "movies", a "movie", "sounds", "media" or "markers": that kind
    /// first, then all files. Nothing for other kinds.
    static QList<FileFilter> of(const QString& kind);
    /// For the bus to carry them.
    static void registerTypes();
    /// A pattern that takes an ending in either case: "*.[mM][pP]4".
    static QString pattern(const QString& ending);
};

/// As the file chooser of the portal has them: (us), and (sa(us)).
QDBusArgument& operator<<(QDBusArgument& argument, const FilePattern& pattern);
const QDBusArgument& operator>>(const QDBusArgument& argument, FilePattern& pattern);
QDBusArgument& operator<<(QDBusArgument& argument, const FileFilter& filter);
const QDBusArgument& operator>>(const QDBusArgument& argument, FileFilter& filter);

}

Q_DECLARE_METATYPE(murbo::FilePattern)
Q_DECLARE_METATYPE(murbo::FileFilter)
