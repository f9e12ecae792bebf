#include "app/desktop/libraries/BookView.h"

#include "app/desktop/drawn/Painted.h"

#include <QQuickWindow>
#include <QSGImageNode>

namespace murbo {
namespace {

constexpr int interval = 100; ///< ms from one picture to the next

}

BookView::BookView(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    ticking.setInterval(interval);
    connect(&ticking, &QTimer::timeout, this, [this] {
        step = (step + 1) % BookPictures::steps;
        look();
    });
    connect(this, &BookView::changed, this, [this] {
        disconnect(followed);
        if (library)
            followed = connect(qobject_cast<BookPictures*>(library->pictures()), &BookPictures::changed, this,
                               &BookView::look);
        look();
    });
}

void BookView::setPlaying(bool playing) {
    if (playing == isPlaying()) return;
    step = playing ? 0 : BookPictures::rest;
    if (playing)
        ticking.start();
    else
        ticking.stop();
    emit changed();
}

/// Takes the picture of now where it is there; until then the one before stays.
void BookView::look() {
    const auto* shown = library ? library->book(book) : nullptr;
    auto now = shown ? qobject_cast<BookPictures*>(library->pictures())->picture(*shown, step) : std::nullopt;
    if (!now || (picture && now->row(0) == picture->row(0))) return;
    picture = std::move(now);
    fresh = true;
    update();
}

QSGNode* BookView::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<QSGImageNode*>(old);
    if (!picture || width() <= 0 || height() <= 0) {
        delete node;
        return nullptr;
    }
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
        fresh = true;
    }
    if (std::exchange(fresh, false))
        node->setTexture(
            window()->createTextureFromImage(Painted::image(*picture), QQuickWindow::TextureIsOpaque));
    const auto size =
        QSizeF(picture->width(), picture->height()).scaled(QSizeF(width(), height()), Qt::KeepAspectRatio);
    node->setRect(QRectF(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size));
    return node;
}

}
