#pragma once

#include "app/desktop/drawn/DrawList.h"

#include <QPointer>
#include <QQuickItem>

namespace murbo {

class FootagePictures;

/// An item that shows a draw list.
class DrawnView : public QQuickItem {
    Q_OBJECT

public:
    explicit DrawnView(QQuickItem* parent = nullptr);

protected:
    /// What it shows now, in points of its own.
    virtual DrawList drawList() = 0;
    void setPictures(FootagePictures* pictures);

    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;

private:
    QPointer<FootagePictures> pictures;
};

}
