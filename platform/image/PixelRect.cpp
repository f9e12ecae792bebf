#include "platform/image/PixelRect.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

/// What sums of squares of coordinates have no say in: numbers that differ by less name the same place.
constexpr double noise = 1e-6;

int counted(double value) {
    constexpr double farthest = 1 << 28;
    return int(std::clamp(value, -farthest, farthest));
}

}

PixelRect PixelRect::intersection(const PixelRect& other) const {
    const PixelRect both{std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                         std::min(bottom, other.bottom)};
    return both.empty() ? PixelRect{} : both;
}

bool PixelRect::contains(const PixelRect& other) const {
    return other.left >= left && other.top >= top && other.right <= right && other.bottom <= bottom;
}

PixelRect PixelRect::clampedTo(const PixelRect& whole) const {
    PixelRect clamped;
    clamped.left = std::clamp(left, whole.left, whole.right - 1);
    clamped.top = std::clamp(top, whole.top, whole.bottom - 1);
    clamped.right = std::clamp(right, clamped.left + 1, whole.right);
    clamped.bottom = std::clamp(bottom, clamped.top + 1, whole.bottom);
    return clamped;
}

PixelRect PixelRect::touching(const Rect& rect) {
    if (rect.empty()) return {};
    return {counted(std::floor(rect.x + noise)), counted(std::floor(rect.y + noise)),
            counted(std::ceil(rect.right() - noise)), counted(std::ceil(rect.bottom() - noise))};
}

PixelRect PixelRect::inside(const Rect& rect) {
    const PixelRect pixels{counted(std::ceil(rect.x - noise)), counted(std::ceil(rect.y - noise)),
                           counted(std::floor(rect.right() + noise)),
                           counted(std::floor(rect.bottom() + noise))};
    return pixels.empty() ? PixelRect{} : pixels;
}

PixelRect PixelRect::within(const Rect& rect) {
    const auto first = [](double edge) { return counted(std::ceil(edge - 0.5 - noise)); };
    return {first(rect.x), first(rect.y), first(rect.right()), first(rect.bottom())};
}

}
