#pragma once

#include "app/editor/playback/SoundPlayer.h"

#include <QObject>
#include <QString>
#include <QTimer>

namespace murbo {

/// Plays one sound file after the other, for choosing among them, as loud as the viewers.
/// Main thread only.
class SoundPreview : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString playing READ playing NOTIFY changed)

public:
    explicit SoundPreview(SoundPlayer::MakeOutput output, QObject* parent = nullptr);

    QString playing() const { return file; } ///< the path of the one that sounds; empty where none does
    /// From its start; what sounded before falls silent. The file is opened beside this call.
    void play(const QString& path, double length);
    void stop();

signals:
    void changed();

private:
    SoundPlayer player;
    QString file;
    QTimer ending;
};

}
