#pragma once

#include "app/desktop/drawn/DrawList.h"

#include <QPointer>
#include <QQuickItem>
#include <memory>

namespace murbo {

class FootagePictures;
class ListPicture;

/// An item that shows a draw list.
class DrawnView : public QQuickItem {
    Q_OBJECT

public:
    explicit DrawnView(QQuickItem* parent = nullptr);
    ~DrawnView() override;

protected:
    /// What it shows now, in points of its own.
    virtual DrawList drawList() = 0;
    void setPictures(FootagePictures* pictures);
    /// Has it all painted into one picture on that ground, instead of being a node for each thing.
    void paintOn(const QColor& ground);

    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;

private:
    QSGNode* pictureNode(QSGNode* old);

    QPointer<FootagePictures> pictures;
    std::unique_ptr<ListPicture> whole;
    QColor ground;
};

}
