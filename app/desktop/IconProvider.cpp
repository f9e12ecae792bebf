#include "app/desktop/IconProvider.h"

#include "app/desktop/drawn/IconPicture.h"

namespace murbo {
namespace {

constexpr int standardSide = 24;

}

QImage IconProvider::requestImage(const QString& id, QSize* size, const QSize& wanted) {
    const auto side = wanted.width() > 0 ? wanted : QSize(standardSide, standardSide);
    if (size) *size = side;
    return IconPicture::of(id.section('/', 0, 0), id.section('/', 1), side);
}

}
