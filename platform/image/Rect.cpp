#include "platform/image/Rect.h"

#include <algorithm>

namespace murbo {
namespace {

constexpr double endless = 1e30;

}

Rect Rect::everything() {
    return {-endless, -endless, 2 * endless, 2 * endless};
}

bool Rect::isEverything() const {
    return *this == everything();
}

Rect Rect::intersection(const Rect& other) const {
    if (empty() || other.empty()) return {};
    if (contains(other)) return other;
    if (other.contains(*this)) return *this;
    const double left = std::max(x, other.x);
    const double top = std::max(y, other.y);
    const Rect both{left, top, std::min(right(), other.right()) - left,
                    std::min(bottom(), other.bottom()) - top};
    return both.empty() ? Rect{} : both;
}

Rect Rect::united(const Rect& other) const {
    if (empty() || other.contains(*this)) return other.empty() ? Rect{} : other;
    if (other.empty() || contains(other)) return *this;
    const double left = std::min(x, other.x);
    const double top = std::min(y, other.y);
    return {left, top, std::max(right(), other.right()) - left, std::max(bottom(), other.bottom()) - top};
}

bool Rect::contains(const Rect& other) const {
    return other.x >= x && other.y >= y && other.right() <= right() && other.bottom() <= bottom();
}

}
