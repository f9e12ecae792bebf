#pragma once

#include "platform/image/Geometry.h"

#include <cstdint>

namespace murbo {

/// A rectangle of whole pixels, right and bottom exclusive.
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
    bool empty() const { return right <= left || bottom <= top; }
    std::int64_t area() const { return empty() ? 0 : std::int64_t(width()) * height(); }
    Rect rect() const { return {double(left), double(top), double(width()), double(height())}; }

    PixelRect intersection(const PixelRect& other) const;
    bool contains(const PixelRect& other) const;
    PixelRect grown(int x, int y) const { return {left - x, top - y, right + x, bottom + y}; }
    /// Within `whole` and never empty: where it lies beside, the nearest pixels.
    PixelRect clampedTo(const PixelRect& whole) const;

    /// All pixels that `rect` touches; far coordinates are cut to what can be counted.
    static PixelRect touching(const Rect& rect);
    /// The pixels that lie wholly in `rect`.
    static PixelRect inside(const Rect& rect);
    /// The pixels whose middles lie in `rect`, so that two rectangles with a common edge share no pixel and
    /// leave none.
    static PixelRect within(const Rect& rect);

    bool operator==(const PixelRect&) const = default;
};

/// Calls `take` with up to four rectangles that make up `whole` without `hole`.
template <typename Take>
void around(const PixelRect& whole, const PixelRect& hole, Take take) {
    const PixelRect inner = whole.intersection(hole);
    if (inner.empty()) return take(whole);
    const PixelRect parts[] = {{whole.left, whole.top, whole.right, inner.top},
                               {whole.left, inner.top, inner.left, inner.bottom},
                               {inner.right, inner.top, whole.right, inner.bottom},
                               {whole.left, inner.bottom, whole.right, whole.bottom}};
    for (const auto& part : parts) {
        if (!part.empty()) take(part);
    }
}

}
