#pragma once

#include <QQuickImageProvider>

namespace murbo {

/// The icons, drawn sharp at any size and in any colour: "image://icon/<name>/<colour without #>".
class IconProvider : public QQuickImageProvider {
public:
    IconProvider() : QQuickImageProvider(QQuickImageProvider::Image) {}

    /// Without a size 24 pixels a side; clear where there is no such icon.
    QImage requestImage(const QString& id, QSize* size, const QSize& wanted) override;
};

}
