#pragma once

#include "app/desktop/services/FileChoice.h"
#include "app/editor/playback/SoundPlayer.h"

#include <QObject>
#include <QQmlEngine>
#include <QVariantList>
#include <filesystem>
#include <memory>
#include <vector>

class QQuickWindow;

namespace murbo {

class ProjectWindow;

/// The desktop program: the windows that are open, the start window where none is, and how projects come to
/// be open. Main thread only.
class Desktop : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariantList recent READ recent NOTIFY recentChanged)
    Q_PROPERTY(QString version READ version CONSTANT)
    Q_PROPERTY(QString projectFolder READ projectFolder NOTIFY recentChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY problemChanged)
    Q_PROPERTY(QString whisper READ whisper CONSTANT)

public:
    /// `sound` makes what the players are heard on; none is silence.
    explicit Desktop(SoundPlayer::MakeOutput sound);
    ~Desktop() override;

    /// Makes Qt's types and the views' own known to the engine; once.
    static void registerTypes();

    /// The look of all windows; before any of them, once there is an application.
    static void setUp();

    /// Opens these projects, else those that were open when the program ended, else the start window.
    void start(const std::vector<std::filesystem::path>& projects);
    /// Opens a project, or brings its window to the front. What keeps it from opening is said in the window
    /// that is in front, else in the start window. The window, or null.
    ProjectWindow* open(const std::filesystem::path& package);
    const std::vector<std::unique_ptr<ProjectWindow>>& windows() const { return opened; }
    /// Says something in the window that is in front.
    void tell(const QString& words);
    QQuickWindow* startWindow() const { return starting.get(); }

    QVariantList recent() const;
    QString version() const;
    QString projectFolder() const; ///< where the next new project is made
    QString problem() const { return words; }
    QString whisper() const; ///< what transcribing lacks, in words; empty where all is there

    Q_INVOKABLE bool openPath(const QString& path);
    /// Makes an empty project and opens it, with `footage` to be added to it.
    Q_INVOKABLE QString freeName(const QString& folder) const; ///< for a new project there
    Q_INVOKABLE bool create(const QString& name, const QString& folder, const QStringList& footage = {});
    /// Takes a project off the recent ones; it stays where it lies.
    Q_INVOKABLE void forgetRecent(const QString& path);
    Q_INVOKABLE void forgetProblem() { fail(""); }
    Q_INVOKABLE void showStart();
    Q_INVOKABLE void closeWindow(QObject* window);
    /// A local path of a dropped or chosen URL; empty where it is none.
    Q_INVOKABLE QString pathOf(const QUrl& url) const;
    Q_INVOKABLE void showInFolder(const QString& file) const;

signals:
    void recentChanged();
    void problemChanged();

private:
    void close(ProjectWindow* window);
    void noteOpen();
    void fail(const QString& words);

    SoundPlayer::MakeOutput sound;
    FileChoice chooser;
    QQmlEngine engine;
    std::vector<std::unique_ptr<ProjectWindow>> opened;
    std::unique_ptr<QQuickWindow> starting;
    QString words;
};

}
