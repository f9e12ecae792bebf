#pragma once

#include "app/desktop/exports/ExportRow.h"
#include "app/desktop/models/Rows.h"
#include "app/editor/Background.h"
#include "core/model/Project.h"
#include "core/render/export/Exporter.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <memory>
#include <stop_token>
#include <utility>
#include <vector>

namespace murbo {

/// Movies on their way out of a project, one after the other, beside all other work. Each is made from the
/// project as it stood when it was asked for, so that editing goes on. What became of one is kept until it is
/// cleared away. Main thread only.
class ExportQueue : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool running READ running NOTIFY changed)
    Q_PROPERTY(int waiting READ waiting NOTIFY changed)
    Q_PROPERTY(QString title READ title NOTIFY changed)
    Q_PROPERTY(double progress READ progress NOTIFY progressChanged)
    Q_PROPERTY(QString left READ left NOTIFY progressChanged)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
    Q_PROPERTY(QString finished READ finished NOTIFY changed)
    Q_PROPERTY(QAbstractItemModel* movies READ movies CONSTANT)

public:
    struct MovieJob {
        Video video;
        Project project;
        Exporter::Order order;
    };

    explicit ExportQueue(QObject* parent = nullptr);
    /// Stops what is running; nothing half-made stays.
    ~ExportQueue() override;

    bool running() const { return at(ExportRow::MovieState::running) != nullptr; }
    int waiting() const;
    QString title() const;                         ///< of the movie that is being made
    double progress() const { return share; }      ///< 0 to 1
    QString left() const;                          ///< the time that it will take still, "0:21 left"
    QString problem() const { return words; }      ///< why the last one failed; empty where it did not
    QString finished() const { return madeFile; }  ///< the file made last; empty before
    QAbstractItemModel* movies() { return &list; } ///< in the order in which they were asked for
    const std::vector<ExportRow>& rows() const { return list.rows(); }

    void add(MovieJob job);
    /// Whether a video is being made, or waits.
    bool holds(const UUID& video) const;
    /// Whether the file of that path is being made, or waits.
    bool makes(const QString& path) const;

    /// Stops the one that is being made; the next begins.
    Q_INVOKABLE void stop();
    /// Takes one out that waits, stops one that is being made, forgets one that has ended.
    Q_INVOKABLE void remove(const QString& movie);
    /// Forgets those that have ended.
    Q_INVOKABLE void clear();

signals:
    void changed();
    void progressChanged();
    void said(const QString& words);
    void idle();

private:
    struct QueuedMovie {
        ExportRow row;
        std::shared_ptr<const MovieJob> job; ///< none once it has ended
    };

    const QueuedMovie* at(ExportRow::MovieState state) const; ///< the first in that state, or null
    QueuedMovie* at(ExportRow::MovieState state) {
        return const_cast<QueuedMovie*>(std::as_const(*this).at(state));
    }
    void next();
    void setShare(double share);
    void end(ExportRow::MovieState state, const QString& words);
    void refresh();

    std::vector<QueuedMovie> queue;
    Rows<ExportRow> list;
    int asked = 0;
    QString words;
    QString madeFile;
    double share = 0;
    QElapsedTimer since;
    std::stop_source stopping;
    Background background;
};

}
