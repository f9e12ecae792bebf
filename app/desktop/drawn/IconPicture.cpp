#include "app/desktop/drawn/IconPicture.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace murbo {

QImage IconPicture::of(const QString& name, const QString& colour, const QSize& size) {
    QImage icon(size, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QFile file(":/murbo/icons/" + name + ".svg");
    if (!file.open(QIODevice::ReadOnly)) return icon;
    auto drawing = file.readAll();
    drawing.replace("currentColor", "#" + colour.toLatin1());
    drawing.replace("stroke-width=\"2\"", "stroke-width=\"1.75\"");
    QSvgRenderer renderer(drawing);
    QPainter painter(&icon);
    renderer.render(&painter);
    return icon;
}

}
