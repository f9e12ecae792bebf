#pragma once

#include "app/desktop/exports/MovieChecks.h"
#include "app/editor/Background.h"

#include <QObject>
#include <QVariantList>
#include <stop_token>

namespace murbo {

class Editor;

/// "Before you post": what the open video is checked for while the export sheet is up, and what can be done
/// about it. Captions are measured aside. Main thread only.
class DeliveryCheck : public QObject {
    Q_OBJECT
    Q_PROPERTY(QVariantList findings READ findings NOTIFY changed)
    Q_PROPERTY(QString state READ state NOTIFY changed)
    Q_PROPERTY(QString allGood READ allGood NOTIFY changed)

public:
    /// `apps` are what safe areas are known of: name, left, top, right, bottom.
    DeliveryCheck(Editor& editor, const QVariantList& apps, QObject* parent = nullptr);
    ~DeliveryCheck() override;

    /// words, fixable.
    QVariantList findings() const;
    bool isBusy() const { return busy; }
    QString state() const;   ///< "checking…", "2 to look at", "checked just now"
    QString allGood() const; ///< what was looked at and found good; empty while it is being looked at

    /// Checks the open video, and again after every change, until `end`.
    Q_INVOKABLE void begin();
    Q_INVOKABLE void end();
    /// Goes to where a finding is seen, with what it is about picked.
    Q_INVOKABLE void show(int finding);
    /// Moves an edge that cuts somebody off to where they have finished.
    Q_INVOKABLE void fix(int finding);

signals:
    void changed();

private:
    void check();
    void checkCaptions();
    void sort();

    Editor& editor;
    std::vector<MovieChecks::CoveredEdges> apps;
    std::vector<MovieChecks::Finding> cuts;
    std::vector<MovieChecks::Finding> captions;
    std::vector<MovieChecks::Finding> all; ///< in the order of the video
    std::size_t cues = 0;                  ///< captions of the video
    bool watching = false;
    bool busy = false;
    bool stale = false; ///< the video has changed since the captions were begun
    std::stop_source stopping;
    Background background;
};

}
