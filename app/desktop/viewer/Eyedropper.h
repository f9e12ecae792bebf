#pragma once

#include <QObject>
#include <QPointF>
#include <QString>

namespace murbo {

class FrameView;

/// Takes a colour out of a viewer's picture for whoever asks. While it is asked for, the viewers show what
/// lies under the pointer; a press takes it, Escape lets go.
class Eyedropper : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool active READ active NOTIFY activeChanged)
    Q_PROPERTY(QString colour READ colour NOTIFY colourChanged)

public:
    static constexpr int side = 5; ///< pixels of the square that is averaged: footage is noisy

    using QObject::QObject;

    bool active() const { return asker != nullptr; }
    QString colour() const { return seen; } ///< RRGGBB under the pointer; empty where there is none

    /// Asks for a colour; `taken` comes with the same asker, and `letGo` also where none is taken.
    Q_INVOKABLE void ask(QObject* asker);
    /// Shows the colour at a point of a view, in points of it. Empty beside the picture.
    Q_INVOKABLE void look(murbo::FrameView* view, const QPointF& point);
    /// Takes what is shown. Without a colour it goes on.
    Q_INVOKABLE void take();
    Q_INVOKABLE bool cancel();

    /// The colour of a view's picture at a point; empty beside it.
    static QString colourAt(const FrameView& view, const QPointF& point);

signals:
    void activeChanged();
    void colourChanged();
    void taken(QObject* asker, const QString& colour);
    void letGo(QObject* asker);

private:
    void stop();

    QObject* asker = nullptr; ///< never looked into
    QString seen;
};

}
