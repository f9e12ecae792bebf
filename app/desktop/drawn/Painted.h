#pragma once

#include "app/desktop/drawn/DrawList.h"
#include "platform/image/Bitmap.h"

#include <QImage>

class QPainter;

namespace murbo {

struct Loudness;

/// The pictures that views are put together from, drawn without a window. `ratio` is device pixels a point.
namespace Painted {

/// A bitmap as Qt's image; they share the pixels.
QImage image(const Bitmap& bitmap);

/// The middle of a picture that fills a place of that shape.
QRectF filling(const QSizeF& picture, double width, double height);

/// A line of text, 11 points high, cut off at its rectangle's width.
QImage label(const DrawList::Label& label, double ratio);

/// How loud a source is from one second of it to another, mirrored about the middle of a place on the
/// painter's target, in its pixels.
void wave(QPainter& painter, const QRect& place, double from, double to, const QColor& colour,
          const Loudness& loudness);
/// The same as a picture of its own.
QImage wave(const DrawList::Wave& wave, const Loudness& loudness, double ratio);

/// Slanting stripes of a height in points, as wide as any are: of narrower ones the left part is shown.
QImage stripes(double height, const QColor& colour, double ratio);

}

}
