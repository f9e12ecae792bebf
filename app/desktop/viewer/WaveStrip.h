#pragma once

#include "app/desktop/drawn/DrawnView.h"
#include "app/editor/Editor.h"

#include <QColor>

namespace murbo {

/// The held stretch of the source viewer as a waveform, with the marked range and what is marked on it. A
/// press goes there, and a drag with the hand goes along.
class WaveStrip : public DrawnView {
    Q_OBJECT
    Q_PROPERTY(murbo::Editor* editor READ editor WRITE setEditor NOTIFY editorChanged)
    Q_PROPERTY(QColor wave MEMBER wave NOTIFY coloursChanged)
    Q_PROPERTY(QColor range MEMBER range NOTIFY coloursChanged)
    Q_PROPERTY(QColor mark MEMBER mark NOTIFY coloursChanged)
    Q_PROPERTY(QColor playhead MEMBER playhead NOTIFY coloursChanged)

public:
    explicit WaveStrip(QQuickItem* parent = nullptr);

    Editor* editor() const { return session; }
    void setEditor(Editor* editor);
    Q_INVOKABLE void setFootage(QObject* footage);

signals:
    void editorChanged();
    void coloursChanged();

protected:
    DrawList drawList() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;

private:
    double x(double time) const;
    double time(double x) const;

    QPointer<Editor> session;
    QColor wave;
    QColor range;
    QColor mark;
    QColor playhead;
};

}
