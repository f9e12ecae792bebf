#pragma once

#include "app/desktop/viewer/FrameView.h"
#include "app/editor/Editor.h"
#include "core/model/Framing.h"

namespace murbo {

/// What a source's framing makes of the picture that a view shows: the video's own panels, live. Where the
/// split is shown its line can be dragged.
class FramingResult : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(murbo::Editor* editor READ editor WRITE setEditor NOTIFY editorChanged)
    Q_PROPERTY(murbo::FrameView* frame READ frame WRITE setFrame NOTIFY editorChanged)
    Q_PROPERTY(int layout MEMBER layout NOTIFY layoutChanged)
    Q_PROPERTY(double split READ split NOTIFY splitChanged)

public:
    explicit FramingResult(QQuickItem* parent = nullptr);

    Editor* editor() const { return session; }
    void setEditor(Editor* editor);
    FrameView* frame() const { return shown; }
    void setFrame(FrameView* frame);
    double split() const; ///< share of the height
    Q_INVOKABLE bool cancelDrag();

signals:
    void editorChanged();
    void layoutChanged();
    void splitChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;

private:
    QPointer<Editor> session;
    QPointer<FrameView> shown;
    int layout = 0; ///< as Shot::Layout counts
    Framing start;
    double pressed = 0;
    bool dragging = false;
};

}
