#include "app/desktop/drawn/Painted.h"

#include "app/desktop/drawn/MeasuredText.h"
#include "core/intake/samples/Loudness.h"

#include <QFontMetricsF>
#include <QPainter>
#include <cmath>

namespace murbo::Painted {
namespace {

constexpr double steepness = 2.5; ///< levels are dB: what is loud stands out above what is there at all
constexpr double stripe = 1.5;    ///< points

}

QImage image(const Bitmap& bitmap) {
    auto* kept = new Bitmap(bitmap);
    return {std::as_const(*kept).row(0),
            bitmap.width(),
            bitmap.height(),
            bitmap.stride(),
            QImage::Format_ARGB32_Premultiplied,
            [](void* held) { delete static_cast<Bitmap*>(held); },
            kept};
}

QRectF filling(const QSizeF& picture, double width, double height) {
    const double scale = std::max(width / picture.width(), height / picture.height());
    const QSizeF part(width / scale, height / scale);
    return {QPointF((picture.width() - part.width()) / 2, (picture.height() - part.height()) / 2), part};
}

QImage label(const DrawList::Label& label, double ratio) {
    const auto face = MeasuredText::font(label.bold);
    const QFontMetricsF metrics(face);
    const auto text = MeasuredText(label.text, label.bold).fitting(label.rect.width(), label.ellipsis);
    const double width = std::min(std::ceil(metrics.horizontalAdvance(text)) + 2, label.rect.width() + 2);
    const QSizeF size(std::max(width, 1.0), std::ceil(metrics.height()));
    QImage target((size * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    target.setDevicePixelRatio(ratio);
    target.fill(Qt::transparent);
    QPainter painter(&target);
    painter.setFont(face);
    painter.setPen(label.colour);
    painter.drawText(QPointF(0, metrics.ascent()), text);
    painter.end();
    target.setDevicePixelRatio(1);
    return target;
}

void wave(QPainter& painter, const QRect& place, double from, double to, const QColor& colour,
          const Loudness& loudness) {
    const double seconds = (to - from) / std::max(place.width(), 1);
    const int middle = place.top() + place.height() / 2;
    // What lies outside of the target is not measured.
    const int first = std::max(place.left(), 0);
    const int end = std::min(place.right() + 1, painter.device()->width());
    for (int x = first; x < end; ++x) {
        const double begin = from + (x - place.left()) * seconds;
        const int half = static_cast<int>(std::pow(loudness.level(begin, begin + seconds), steepness) *
                                          place.height() / 2);
        painter.fillRect(QRect(x, middle - half, 1, 2 * half + 1), colour);
    }
}

QImage wave(const DrawList::Wave& wave, const Loudness& loudness, double ratio) {
    const int width = std::max(static_cast<int>(std::lround(wave.rect.width() * ratio)), 1);
    const int height = std::max(static_cast<int>(std::lround(wave.rect.height() * ratio)), 2);
    QImage target(width, height, QImage::Format_ARGB32_Premultiplied);
    target.fill(Qt::transparent);
    QPainter painter(&target);
    Painted::wave(painter, target.rect(), wave.from, wave.to, wave.colour, loudness);
    return target;
}

QImage stripes(double height, const QColor& colour, double ratio) {
    const auto size = (QSizeF(DrawList::stripesWidth, height) * ratio).toSize().expandedTo({1, 1});
    QImage target(size, QImage::Format_ARGB32_Premultiplied);
    target.fill(Qt::transparent);
    QPainter painter(&target);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, stripe * ratio));
    // From below the picture to above it, so that its edges cut all of them.
    const double step = DrawList::stripeStep * ratio;
    const double low = size.height() + step;
    const double rise = size.height() + 2 * step;
    for (double x = -std::ceil(rise / step) * step; x < size.width(); x += step)
        painter.drawLine(QPointF(x, low), QPointF(x + rise, low - rise));
    return target;
}

}
