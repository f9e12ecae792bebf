#pragma once

#include "app/desktop/drawn/DrawList.h"
#include "platform/image/Bitmap.h"

#include <QImage>

namespace murbo {

struct Loudness;

/// The pictures that views are put together from, drawn without a window. `ratio` is device pixels a point.
namespace Painted {

/// A bitmap as Qt's image; they share the pixels.
QImage image(const Bitmap& bitmap);

/// A line of text, 11 points high, cut off at its rectangle's width.
QImage label(const DrawList::Label& label, double ratio);

/// How loud a source is, mirrored about the middle.
QImage wave(const DrawList::Wave& wave, const Loudness& loudness, double ratio);

/// The longest beginning of a text that is at most so wide, ending between two letters as people see them.
QString fitting(const QString& text, double width, bool bold, bool ellipsis);

}

}
