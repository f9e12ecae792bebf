#pragma once

#include "app/editor/Editor.h"
#include "app/editor/PackageWatch.h"
#include "core/model/Project.h"
#include "core/model/package/PackageLock.h"

#include <QTimer>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace murbo {

/// A project that is open: its package on disk, and the session on it. Every change is on disk when the
/// command that made it returns; there is no save command. A save that fails is reported once, keeps the
/// session alive, and is tried again with the next change and every few seconds.
///
/// When something else changed the package (a sync service, another machine), the next save notices it. Then
/// both sides are kept: what the other wrote goes into a package beside this one, and the session's own state
/// stays here.
class ProjectDocument : public QObject {
    Q_OBJECT

public:
    static constexpr int retryTime = 3000; ///< ms between tries to save what could not be saved

    /// Opens a package. Throws ProjectError, or a Problem where another session has it open. Without `sound`
    /// its players are silent.
    static std::unique_ptr<ProjectDocument> open(const std::filesystem::path& package,
                                                 const SoundPlayer::MakeOutput& sound = {});

    /// Ends an open drag, saves, and writes the history.
    void close();

    Editor& editor() { return *session; }
    const std::filesystem::path& package() const { return folder; }

    /// Why what is in the session is not on disk; nothing where it is.
    const std::optional<std::string>& unsaved() const { return failure; }

signals:
    void unsavedChanged();
    /// A save failed, or another's changes were put aside: words for the owner.
    void told(const QString& words);

private:
    ProjectDocument(const std::filesystem::path& package, PackageLock held, Project project,
                    const SoundPlayer::MakeOutput& sound);

    void save(const Project& project);
    void write(const Project& project);
    bool standsAsSaved() const;
    void putAside();
    std::string name() const;
    void retry();
    void fail(const std::string& words);

    std::filesystem::path folder;
    PackageLock lock;         ///< held as long as the project is open
    Project saved;            ///< the last state known to be on disk
    bool partlySaved = false; ///< a save failed between two files
    PackageWatch watch;
    std::optional<std::string> failure;
    QTimer retrying;
    std::unique_ptr<Editor> session;
};

}
