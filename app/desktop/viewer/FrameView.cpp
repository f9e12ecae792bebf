#include "app/desktop/viewer/FrameView.h"

#include "app/desktop/drawn/Painted.h"
#include "app/editor/playback/FrameSink.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <algorithm>
#include <mutex>

namespace murbo {

/// Takes the player's pictures on its thread. The view outlives it for the player: it is taken away first.
class FrameView::Sink : public FrameSink {
public:
    explicit Sink(FrameView& shown) : view(shown) {}

    void show(const PlayerFrame& frame) override {
        {
            const std::lock_guard hold(lock);
            newest = frame.picture;
            const bool announced = std::exchange(fresh, true);
            if (announced) return;
        }
        QMetaObject::invokeMethod(
            &view, [&shown = view] { shown.take(); }, Qt::QueuedConnection);
    }

    /// The picture that came last, and nothing where it was taken already.
    std::optional<Bitmap> taken() {
        const std::lock_guard hold(lock);
        if (!std::exchange(fresh, false)) return {};
        return newest;
    }
    Bitmap last() {
        const std::lock_guard hold(lock);
        return newest;
    }

private:
    FrameView& view;
    std::mutex lock;
    Bitmap newest;
    bool fresh = false;
};

FrameView::FrameView(QQuickItem* parent) : QQuickItem(parent), sink(std::make_shared<Sink>(*this)) {
    setFlag(ItemHasContents);
}

FrameView::~FrameView() {
    if (other) other->setMirror(nullptr);
    if (playing) playing->setSink(nullptr, 0, 0);
}

Bitmap FrameView::last() const {
    return sink->last();
}

bool FrameView::isWaiting() const {
    if (!isVisible() || !playing || !playing->isLoaded() || asked.isEmpty()) return false;
    const auto picture = last();
    return QSize(picture.width(), picture.height()) != asked;
}

void FrameView::setPlayer(Playback* player) {
    if (player == playing) return;
    if (playing) {
        playing->disconnect(this);
        playing->setSink(nullptr, 0, 0);
    }
    playing = player;
    asked = {};
    if (playing) connect(playing, &Playback::frameSizeChanged, this, &FrameView::fit);
    fit();
    emit playerChanged();
}

void FrameView::setMirrors(FrameView* view) {
    if (view == other) return;
    if (other) {
        other->disconnect(this);
        other->setMirror(nullptr);
    }
    other = view;
    if (other) {
        connect(other, &FrameView::frameShown, this, &QQuickItem::update);
        other->setMirror(this);
    }
    fit();
    emit playerChanged();
}

void FrameView::setMirror(FrameView* view) {
    mirror = view;
    ask();
}

/// Lays the picture into the item, as large as it goes.
void FrameView::fit() {
    const QSizeF whole = shownPlayer() ? QSizeF(shownPlayer()->frameSize()) : QSizeF();
    const auto size = whole.isEmpty() || width() <= 0 || height() <= 0
                          ? QSizeF()
                          : whole.scaled(QSizeF(width(), height()), Qt::KeepAspectRatio);
    const QRectF lies(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size);
    if (lies != place) {
        place = lies;
        emit pictureChanged();
        update();
    }
    ask();
    if (other) other->ask();
}

/// Asks for pictures of the size that is shown.
void FrameView::ask() {
    if (!playing || !window()) return;
    const auto size = mirror ? place.size().expandedTo(mirror->place.size()) : place.size();
    const auto device = (size * window()->effectiveDevicePixelRatio()).toSize();
    const auto wanted = device.boundedTo(playing->frameSize());
    if (wanted == asked) return;
    asked = wanted;
    playing->setSink(wanted.isEmpty() ? nullptr : sink, wanted.width(), wanted.height());
}

void FrameView::step(int frames) {
    if (playing && playing->isLoaded()) playing->step(frames / playing->frameRate());
}

void FrameView::take() {
    ++count;
    update();
    emit frameShown();
}

QSGNode* FrameView::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<QSGImageNode*>(old);
    auto fresh = other ? std::optional(other->sink->last()) : sink->taken();
    if (!node && !fresh) fresh = sink->last();
    if (!shownPlayer() || !shownPlayer()->isLoaded() || place.isEmpty() ||
        (!node && (!fresh || fresh->empty()))) {
        delete node;
        return nullptr;
    }
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
    }
    if (fresh && !fresh->empty())
        node->setTexture(
            window()->createTextureFromImage(Painted::image(*fresh), QQuickWindow::TextureIsOpaque));
    node->setRect(place);
    return node;
}

void FrameView::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    if (now.size() != before.size()) fit();
}

void FrameView::itemChange(ItemChange change, const ItemChangeData& data) {
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged) {
        asked = {};
        fit();
    }
}

}
