#pragma once

#include <QStringList>

namespace murbo {

/// Files that were handed over together, by what they are for.
struct DroppedFiles {
    QStringList footage;  ///< movies, folders and whatever is unknown
    QStringList pictures; ///< to be laid over the video
    QStringList sounds;

    /// By their endings alone.
    static DroppedFiles sorted(const QStringList& paths);
};

}
