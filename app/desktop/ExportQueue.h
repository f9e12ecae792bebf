#pragma once

#include "app/editor/Background.h"
#include "core/model/Project.h"
#include "core/render/export/Exporter.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <deque>
#include <stop_token>

namespace murbo {

/// Movies on their way out of a project, one after the other, beside all other work. Each is made from the
/// project as it stood when it was asked for, so that editing goes on. Main thread only.
class ExportQueue : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool running READ running NOTIFY changed)
    Q_PROPERTY(int waiting READ waiting NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(double progress READ progress NOTIFY progressChanged)
    Q_PROPERTY(QString left READ left NOTIFY progressChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(QString file READ path NOTIFY changed)
    Q_PROPERTY(QString finished READ finished NOTIFY changed)

public:
    struct MovieJob {
        Video video;
        Project project;
        Exporter::Order order;
    };

    explicit ExportQueue(QObject* parent = nullptr);
    /// Stops what is running; nothing half-made stays.
    ~ExportQueue() override;

    bool running() const { return busy; }
    int waiting() const { return static_cast<int>(jobs.size()); }
    QString title() const { return name; }        ///< of the movie that is being made, or was last
    QString path() const { return file; }         ///< of its file
    double progress() const { return share; }     ///< 0 to 1
    QString left() const;                         ///< the time that it will take still, "0:21 left"
    QString problem() const { return words; }     ///< why the last one could not be made; empty where it was
    QString finished() const { return madeFile; } ///< the file made last; empty before

    void add(MovieJob job);
    Q_INVOKABLE void stop();
    /// Forgets what came of the last one.
    Q_INVOKABLE void clear();

signals:
    void changed();
    void progressChanged();
    void said(const QString& words);
    void idle();

private:
    void next();
    void setShare(double share);
    void end(const QString& problem, bool stopped);

    std::deque<MovieJob> jobs;
    bool busy = false;
    QString name;
    QString file;
    QString words;
    QString madeFile;
    double share = 0;
    QElapsedTimer since;
    std::stop_source stopping;
    Background background;
};

}
