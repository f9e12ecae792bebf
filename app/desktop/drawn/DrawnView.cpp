#include "app/desktop/drawn/DrawnView.h"

#include "app/desktop/drawn/DrawNode.h"
#include "app/desktop/drawn/FootagePictures.h"
#include "app/desktop/drawn/ListPicture.h"

#include <QQuickWindow>
#include <QSGImageNode>

namespace murbo {

DrawnView::DrawnView(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    setClip(true);
}

DrawnView::~DrawnView() = default;

void DrawnView::paintOn(const QColor& colour) {
    if (!whole) whole = std::make_unique<ListPicture>();
    ground = colour;
    update();
}

void DrawnView::setPictures(FootagePictures* given) {
    if (pictures) pictures->disconnect(this);
    pictures = given;
    if (pictures) connect(pictures, &FootagePictures::changed, this, &QQuickItem::update);
    update();
}

QSGNode* DrawnView::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    if (whole) return pictureNode(old);
    auto* node = old ? static_cast<DrawNode*>(old) : new DrawNode;
    node->show(drawList(), *window(), pictures);
    return node;
}

QSGNode* DrawnView::pictureNode(QSGNode* old) {
    auto* node = static_cast<QSGImageNode*>(old);
    if (width() < 1 || height() < 1) {
        delete node;
        return nullptr;
    }
    const double ratio = window()->effectiveDevicePixelRatio();
    const bool another = whole->paint(drawList(), {size(), ratio, ground}, pictures);
    if (node && !another) return node;
    const auto& picture = whole->picture();
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Nearest);
    }
    node->setTexture(window()->createTextureFromImage(picture, QQuickWindow::TextureIsOpaque));
    node->setRect(QRectF({}, QSizeF(picture.size()) / ratio));
    return node;
}

void DrawnView::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    update();
}

}
