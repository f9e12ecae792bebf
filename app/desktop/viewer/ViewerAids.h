#pragma once

#include "app/editor/playback/Playback.h"

#include <QObject>
#include <QTimer>
#include <QVariantList>

namespace murbo {

/// What can be laid over the video's picture for the one who edits, and is never in the movie: what the apps
/// that show upright videos cover, and how many pictures were dropped. Remembered in the settings.
class ViewerAids : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool safeAreas READ safeAreas WRITE setSafeAreas NOTIFY changed)
    Q_PROPERTY(bool droppedFrames READ droppedFrames WRITE setDroppedFrames NOTIFY changed)
    Q_PROPERTY(QVariantList areas READ areas CONSTANT)
    Q_PROPERTY(QString note READ note CONSTANT)
    Q_PROPERTY(QString droppedWords READ droppedWords NOTIFY droppedChanged)

public:
    explicit ViewerAids(Playback& player);

    bool safeAreas() const { return areasShown; }
    void setSafeAreas(bool on);
    bool droppedFrames() const { return droppedShown; }
    void setDroppedFrames(bool on);
    /// Of each app its name and, as shares of the frame, what it covers at the left, top, right and bottom.
    QVariantList areas() const { return platforms; }
    QString note() const { return words; } ///< where the figures are from, and of when
    QString droppedWords() const;          ///< "2 of 310 dropped"

signals:
    void changed();
    void droppedChanged();

private:
    void read();
    void countWhilePlaying();

    Playback& player;
    QTimer counting;
    bool areasShown;
    bool droppedShown;
    QVariantList platforms;
    QString words;
};

}
