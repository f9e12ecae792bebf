#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace murbo {

/// The icons, drawn sharp at any size and in any colour.
namespace IconPicture {

/// `name` as its file is called, `colour` as RRGGBB; clear where there is no such icon.
QImage of(const QString& name, const QString& colour, const QSize& size);

}

}
