#include "platform/image/filters/Posterize.h"

#include "platform/image/kernels/Kernels.h"

#include <algorithm>

namespace murbo::Filters {

std::optional<Posterize> Posterize::clamped(const Rect&) const {
    if (levels >= 256) return std::nullopt;
    return Posterize{std::max(levels, 2)};
}

ChangeRow Posterize::row(const Rect&, const PixelRect&) const {
    return [count = levels](int, int, int width, std::uint8_t* pixels) {
        Kernels::posterize(count, width, pixels);
    };
}

}
