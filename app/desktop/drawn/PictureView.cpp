#include "app/desktop/drawn/PictureView.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <utility>

namespace murbo {

PictureView::PictureView(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
}

void PictureView::setPicture(const QImage& picture) {
    if (picture == shown) return;
    shown = picture;
    fresh = true;
    update();
    emit pictureChanged();
}

QSGNode* PictureView::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = static_cast<QSGImageNode*>(old);
    if (shown.isNull()) {
        delete node;
        return nullptr;
    }
    const bool isNew = !node;
    if (isNew) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
    }
    if (std::exchange(fresh, false) || isNew) node->setTexture(window()->createTextureFromImage(shown));
    const auto size = QSizeF(shown.size()).scaled(boundingRect().size(), Qt::KeepAspectRatio);
    QRectF place({}, size);
    place.moveCenter(boundingRect().center());
    node->setRect(place);
    return node;
}

}
