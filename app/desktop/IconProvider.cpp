#include "app/desktop/IconProvider.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace murbo {
namespace {

constexpr int standardSide = 24;

}

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& wanted) {
    const auto side = wanted.width() > 0 ? wanted : QSize(standardSide, standardSide);
    QImage icon(side, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QFile file(":/murbo/icons/" + id.section('/', 0, 0) + ".svg");
    if (file.open(QIODevice::ReadOnly)) {
        auto drawing = file.readAll();
        drawing.replace("currentColor", "#" + id.section('/', 1).toLatin1());
        drawing.replace("stroke-width=\"2\"", "stroke-width=\"1.75\"");
        QSvgRenderer renderer(drawing);
        QPainter painter(&icon);
        renderer.render(&painter);
    }
    if (size) *size = side;
    return icon;
}

}
