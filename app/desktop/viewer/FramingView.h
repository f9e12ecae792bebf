#pragma once

#include "app/desktop/drawn/DrawnView.h"
#include "app/desktop/viewer/FramingEdit.h"
#include "app/editor/Editor.h"

#include <QColor>

namespace murbo {

/// The two boxes of a source's framing over its picture, to be drawn by hand or moved by keys. It lies where
/// the picture lies. A drag is one step.
class FramingView : public DrawnView {
    Q_OBJECT
    Q_PROPERTY(murbo::Editor* editor READ editor WRITE setEditor NOTIFY editorChanged)
    Q_PROPERTY(int chosen READ chosen WRITE setChosen NOTIFY chosenChanged)
    Q_PROPERTY(bool hasEyes READ hasEyes NOTIFY framingChanged)
    Q_PROPERTY(QColor content MEMBER contentColour NOTIFY coloursChanged)
    Q_PROPERTY(QColor face MEMBER faceColour NOTIFY coloursChanged)
    Q_PROPERTY(QColor label MEMBER labelColour NOTIFY coloursChanged)
    Q_PROPERTY(QColor veil MEMBER veil NOTIFY coloursChanged)
    Q_PROPERTY(bool takesArrows READ takesArrows CONSTANT)
    Q_PROPERTY(bool sizedByArrows READ takesArrows CONSTANT)
    Q_PROPERTY(QString words READ words NOTIFY framingChanged)

public:
    static constexpr const char* stepName = "Change Framing";

    explicit FramingView(QQuickItem* parent = nullptr);

    Editor* editor() const { return session; }
    void setEditor(Editor* editor);
    /// What the keys move: 0 the content, 1 the face, 2 the eyes, 3 the split.
    int chosen() const { return static_cast<int>(part); }
    void setChosen(int part);
    bool hasEyes() const;
    bool takesArrows() const { return true; }
    QString words() const; ///< where the chosen part lies, for who can't see it

    /// The framing of the source that is shown; the usual one where it has none.
    static Framing framingOf(const Editor& editor);
    Q_INVOKABLE void forgetEyes();
    /// Puts a drag back; false where none is open.
    Q_INVOKABLE bool cancelDrag();

signals:
    void editorChanged();
    void chosenChanged();
    void framingChanged();
    void coloursChanged();

protected:
    DrawList drawList() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPointF share(const QPointF& point) const;
    QSizeF reach() const;
    void drawBox(DrawList& list, const Box& box, const QColor& colour, const QString& name, bool active);
    void set(const Framing& framing);

    QPointer<Editor> session;
    FramingEdit::FramingPart part = FramingEdit::FramingPart::content;
    FramingEdit::FramingGrip held;
    Framing start;
    QPointF pressed;
    bool dragging = false;
    QColor contentColour;
    QColor faceColour;
    QColor labelColour;
    QColor veil;
};

}
