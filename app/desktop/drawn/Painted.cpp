#include "app/desktop/drawn/Painted.h"

#include "core/intake/samples/Loudness.h"

#include <QFont>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <cmath>

namespace murbo::Painted {
namespace {

constexpr int labelSize = 11;
constexpr double steepness = 2.5; ///< levels are dB: what is loud stands out above what is there at all

QFont font(bool bold) {
    auto font = QGuiApplication::font();
    font.setPixelSize(labelSize);
    if (bold) font.setWeight(QFont::DemiBold);
    return font;
}

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

QString fitting(const QString& text, double width, bool bold, bool ellipsis) {
    const QFontMetricsF metrics(font(bold));
    const auto line = text.simplified();
    if (ellipsis || metrics.horizontalAdvance(line) <= width)
        return metrics.elidedText(line, Qt::ElideRight, width);
    QTextBoundaryFinder letters(QTextBoundaryFinder::Grapheme, line);
    qsizetype end = 0;
    for (auto next = letters.toNextBoundary(); next > 0; next = letters.toNextBoundary()) {
        if (metrics.horizontalAdvance(line.left(next)) > width) break;
        end = next;
    }
    return line.left(end).trimmed();
}

QImage label(const DrawList::Label& label, double ratio) {
    const auto face = font(label.bold);
    const QFontMetricsF metrics(face);
    const auto text = fitting(label.text, label.rect.width(), label.bold, label.ellipsis);
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

QImage wave(const DrawList::Wave& wave, const Loudness& loudness, double ratio) {
    const int width = std::max(static_cast<int>(std::lround(wave.rect.width() * ratio)), 1);
    const int height = std::max(static_cast<int>(std::lround(wave.rect.height() * ratio)), 2);
    QImage target(width, height, QImage::Format_ARGB32_Premultiplied);
    target.fill(Qt::transparent);
    QPainter painter(&target);
    const double seconds = (wave.to - wave.from) / width;
    for (int x = 0; x < width; ++x) {
        const double from = wave.from + x * seconds;
        const int half = std::max(
            static_cast<int>(std::pow(loudness.level(from, from + seconds), steepness) * height / 2), 0);
        painter.fillRect(x, height / 2 - half, 1, 2 * half + 1, wave.colour);
    }
    return target;
}

}
