#pragma once

#include "app/desktop/drawn/DrawnView.h"
#include "app/desktop/viewer/RangeHandles.h"
#include "app/editor/Editor.h"

#include <QColor>
#include <optional>

namespace murbo {

/// The held stretch of the source viewer as a waveform, with the marked range and what is marked on it:
/// bookmarks, the markers that were set live, and along the foot the clips. A press goes there and a drag
/// goes along; the ends of the range can be dragged.
class WaveStrip : public DrawnView {
    Q_OBJECT
    Q_PROPERTY(murbo::Editor* editor READ editor WRITE setEditor NOTIFY editorChanged)
    Q_PROPERTY(QColor wave MEMBER wave NOTIFY coloursChanged)
    Q_PROPERTY(QColor range MEMBER range NOTIFY coloursChanged)
    Q_PROPERTY(QColor mark MEMBER mark NOTIFY coloursChanged)
    Q_PROPERTY(QColor clip MEMBER clip NOTIFY coloursChanged)
    Q_PROPERTY(QColor playhead MEMBER playhead NOTIFY coloursChanged)

public:
    explicit WaveStrip(QQuickItem* parent = nullptr);

    Editor* editor() const { return session; }
    void setEditor(Editor* editor);
    Q_INVOKABLE void setFootage(QObject* footage);

signals:
    void editorChanged();
    void coloursChanged();
    /// A hand moves over it without a press.
    void skimmed();

protected:
    DrawList drawList() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;

private:
    RangeHandles::StripScale scale() const { return {session->source.span(), width()}; }
    double x(double time) const { return scale().x(time); }
    double time(double x) const { return scale().time(x); }
    RangeHandles::RangeEnd endAt(double x) const;
    void drawMarks(DrawList& list, const UUID& source) const;
    void drawRange(DrawList& list) const;
    void endSkim();

    QPointer<Editor> session;
    std::optional<QPointF> hovered; ///< where the mouse was last, while it is over this
    QColor wave;
    QColor range;
    QColor mark;
    QColor clip;
    QColor playhead;
    RangeHandles::RangeEnd pulled = RangeHandles::RangeEnd::none;
};

}
