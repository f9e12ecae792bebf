#pragma once

#include <QImage>
#include <QQuickItem>

namespace murbo {

/// An item that shows one picture, fitted into it and in its own proportions.
class PictureView : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(QImage picture READ picture WRITE setPicture NOTIFY pictureChanged)

public:
    explicit PictureView(QQuickItem* parent = nullptr);

    const QImage& picture() const { return shown; }
    void setPicture(const QImage& picture);

signals:
    void pictureChanged();

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;

private:
    QImage shown;
    bool fresh = false; ///< the picture is another one than the node's
};

}
