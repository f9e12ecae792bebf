#pragma once

#include "app/desktop/viewer/EdgePicture.h"
#include "app/editor/Editor.h"

#include <QObject>

namespace murbo {

/// What the source viewer has to show beside the moving picture: whether what is held can be shown at all,
/// a still of it for the time until a picture comes, and the edge of a trim. Main thread only.
class HeldFootage : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString state READ state NOTIFY changed)
    Q_PROPERTY(QString path READ path NOTIFY changed)
    Q_PROPERTY(QString words READ words NOTIFY changed)
    Q_PROPERTY(QString source READ source NOTIFY changed)
    Q_PROPERTY(double at READ at NOTIFY placeChanged)
    Q_PROPERTY(QObject* edge READ edge CONSTANT)
    Q_PROPERTY(QObject* edgeAfter READ edgeAfter CONSTANT)
    Q_PROPERTY(bool showsEdge READ showsEdge NOTIFY edgeChanged)

public:
    explicit HeldFootage(Editor& editor);
    /// "empty", "missing", "failed", "loading" or "ready".
    QString state() const;
    QString path() const;  ///< of the held source's file
    QString words() const; ///< why it could not be opened
    QString source() const;
    double at() const; ///< seconds on the source, where the player stands or skims
    EdgePicture* edge() { return &before; }
    EdgePicture* edgeAfter() { return &after; } ///< of a seam: the first picture after it
    bool showsEdge() const { return before.shown() || after.shown(); }

    /// Tries once more to open what could not be opened.
    Q_INVOKABLE void tryAgain();
    /// The strip says that a hand moves over it.
    Q_INVOKABLE void noteSkim() { emit placeChanged(); }

signals:
    void changed();
    void placeChanged();
    void edgeChanged();

private:
    const Source* held() const;
    void hold();
    void fail(const UUID& source, const QString& words);
    void followEdge();

    Editor& editor;
    EdgePicture before;
    EdgePicture after;
    QString failure;
};

}
