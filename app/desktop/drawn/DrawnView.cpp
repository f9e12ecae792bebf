#include "app/desktop/drawn/DrawnView.h"

#include "app/desktop/drawn/DrawNode.h"
#include "app/desktop/drawn/FootagePictures.h"

namespace murbo {

DrawnView::DrawnView(QQuickItem* parent) : QQuickItem(parent) {
    setFlag(ItemHasContents);
    setClip(true);
}

void DrawnView::setPictures(FootagePictures* given) {
    if (pictures) pictures->disconnect(this);
    pictures = given;
    if (pictures) connect(pictures, &FootagePictures::changed, this, &QQuickItem::update);
    update();
}

QSGNode* DrawnView::updatePaintNode(QSGNode* old, UpdatePaintNodeData*) {
    auto* node = old ? static_cast<DrawNode*>(old) : new DrawNode;
    node->show(drawList(), *window(), pictures);
    return node;
}

void DrawnView::geometryChange(const QRectF& now, const QRectF& before) {
    QQuickItem::geometryChange(now, before);
    update();
}

}
