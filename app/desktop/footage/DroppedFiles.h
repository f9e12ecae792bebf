#pragma once

#include <QStringList>

namespace murbo {

/// Files that were handed over together, by what they are for.
struct DroppedFiles {
    QStringList footage;  ///< movies, folders and whatever is unknown
    QStringList pictures; ///< to be laid over the video
    QStringList sounds;
    QStringList playbooks; ///< to come into the library

    /// By their endings alone.
    static DroppedFiles sorted(const QStringList& paths);
};

}
