#pragma once

#include "app/desktop/libraries/LibraryModel.h"

#include <QPointer>
#include <QQuickItem>
#include <QTimer>

namespace murbo {

/// A playbook as it looks: at rest one picture of it, and all of it, again and again, while it plays.
class BookView : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(murbo::LibraryModel* library MEMBER library NOTIFY changed)
    Q_PROPERTY(QString book MEMBER book NOTIFY changed)
    Q_PROPERTY(bool playing READ isPlaying WRITE setPlaying NOTIFY changed)

public:
    explicit BookView(QQuickItem* parent = nullptr);

    bool isPlaying() const { return ticking.isActive(); }
    void setPlaying(bool playing);

signals:
    void changed();

protected:
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;

private:
    void look();

    QPointer<LibraryModel> library;
    QString book;
    QTimer ticking;
    int step = BookPictures::rest;
    std::optional<Bitmap> picture;
    bool fresh = false;
    QMetaObject::Connection followed;
};

}
