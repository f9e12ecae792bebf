#pragma once

#include "app/editor/playback/Playback.h"
#include "platform/image/Bitmap.h"

#include <QPointer>
#include <QQuickItem>
#include <memory>

namespace murbo {

/// Shows what a player plays: the newest picture wins. It asks for pictures of the size that it has on the
/// screen, and never for larger ones than the item's own.
class FrameView : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(murbo::Playback* player READ player WRITE setPlayer NOTIFY playerChanged)
    Q_PROPERTY(murbo::FrameView* mirrors READ mirrors WRITE setMirrors NOTIFY playerChanged)
    Q_PROPERTY(QRectF picture READ picture NOTIFY pictureChanged)
    Q_PROPERTY(qint64 shown READ shown NOTIFY frameShown)

public:
    explicit FrameView(QQuickItem* parent = nullptr);
    ~FrameView() override;

    Playback* player() const { return playing; }
    void setPlayer(Playback* player);
    /// Another view whose picture this one shows too. Where this one is larger, it has that one ask for a
    /// picture that is sharp in both.
    FrameView* mirrors() const { return other; }
    void setMirrors(FrameView* view);
    QRectF picture() const { return place; } ///< where in the item the picture lies
    qint64 shown() const { return count; }   ///< pictures so far
    /// Goes on by that many frames, backward where negative.
    Q_INVOKABLE void step(int frames);
    Bitmap last() const; ///< the newest picture; empty before the first
    /// Whether a picture of the size that it has now is still to come.
    bool isWaiting() const;

signals:
    void playerChanged();
    void pictureChanged();
    void frameShown();

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    class Sink;

    void fit();
    void ask();
    void setMirror(FrameView* view);
    void take();

    const Playback* shownPlayer() const { return other ? other->playing : playing; }

    QPointer<Playback> playing;
    QPointer<FrameView> other;
    QPointer<FrameView> mirror; ///< the view that shows this one's picture too
    std::shared_ptr<Sink> sink;
    QRectF place;
    QSize asked;
    qint64 count = 0;
};

}
