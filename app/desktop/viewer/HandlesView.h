#pragma once

#include "app/desktop/viewer/PickedPlace.h"
#include "app/editor/Editor.h"

#include <QQuickItem>
#include <memory>

namespace murbo {

/// The box with handles round the overlay or caption that is picked, over the video's picture; it lies where
/// the picture lies. What it shows it gives in points of its own; what a hand does becomes one step.
class HandlesView : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(murbo::Editor* editor READ editor WRITE setEditor NOTIFY editorChanged)
    Q_PROPERTY(bool shown READ shown NOTIFY boxChanged)
    Q_PROPERTY(QPointF centre READ centre NOTIFY boxChanged)
    Q_PROPERTY(QSizeF boxSize READ boxSize NOTIFY boxChanged)
    Q_PROPERTY(double turn READ turn NOTIFY boxChanged)
    Q_PROPERTY(double guideX READ guideX NOTIFY boxChanged)
    Q_PROPERTY(double guideY READ guideY NOTIFY boxChanged)
    Q_PROPERTY(QString words READ words NOTIFY boxChanged)
    Q_PROPERTY(bool takesArrows READ shown NOTIFY boxChanged)
    Q_PROPERTY(double knob READ knobAbove CONSTANT)

public:
    explicit HandlesView(QQuickItem* parent = nullptr);
    ~HandlesView() override;

    Editor* editor() const { return session; }
    void setEditor(Editor* editor);
    bool shown() const { return box.has_value(); }
    QPointF centre() const;
    QSizeF boxSize() const;
    double turn() const { return box ? box->turn : 0; }                   ///< degrees clockwise
    double guideX() const { return guides.x ? *guides.x * scale() : -1; } ///< -1 where none has caught
    double guideY() const { return guides.y ? *guides.y * scale() : -1; }
    QString words() const; ///< what it is and where, for who can't see it
    double knobAbove() const;
    /// What a press met, or what the picked thing looks like, is still being found out.
    bool isLooking() const { return busy || looking > 0; }

    Q_INVOKABLE bool cancelDrag();
    /// A hand skims over the video: the box goes with the picture that is shown.
    Q_INVOKABLE void noteSkim() { follow(); }
    /// The text that can be written anew: an overlay's first text, a caption's line. Empty where there is
    /// none.
    Q_INVOKABLE QString text() const;
    Q_INVOKABLE void setText(const QString& text);

signals:
    void editorChanged();
    void boxChanged();
    /// A double press on it: its text is to be edited in place.
    void editAsked();

protected:
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    double shownTime() const; ///< video seconds of the picture that is seen
    double scale() const;     ///< points to a pixel of the frame
    std::optional<Plan> planNow() const;
    void remeasure();
    void follow();
    void place(const PictureBox& to);
    void pickAt(const QPointF& point, Qt::KeyboardModifiers held);
    void take(const std::optional<Pick>& found, Qt::KeyboardModifiers held);
    QString stepName() const;
    std::optional<UUID> captionSource() const;
    const Line* pickedLine() const;
    QPointF onFrame(const QPointF& point) const { return point / scale(); }

    QPointer<Editor> session;
    Background measuring;
    std::shared_ptr<PlaybookMedia> media;
    std::optional<Pick> pick;
    std::optional<Plan> plan;
    std::optional<PickedPlace::Measured> measured;
    std::optional<PictureBox> box;
    bool busy = false;
    bool stale = false;

    PictureBox::PictureGrip grip = PictureBox::PictureGrip::none;
    PictureBox start; ///< as a drag began, with its move
    Move startMove;
    QPointF pressed;
    bool clicking = false; ///< nothing has been moved since the press
    int picking = 0;       ///< the last click
    int looking = 0;       ///< clicks whose things are still looked for
    PictureGuides::Caught guides;
};

}
