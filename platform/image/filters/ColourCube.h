#pragma once

#include "platform/image/Filter.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace murbo::Filters {

/// Colours by table: premultiplied red, green, blue, alpha from 0 to 1 for `side` steps a channel, red
/// running fastest, straight colours looking up between them. The picture's own alpha multiplies the result.
struct ColourCube {
    int side = 32;
    std::shared_ptr<const std::vector<float>> values;
    /// The values as pixels, worked out by `clamped`, with some to spare after them (see
    /// `Kernels::ColourTable`).
    std::shared_ptr<const std::vector<std::uint32_t>> packed;

    std::optional<ColourCube> clamped(const Rect&) const;
    bool byPixel() const { return true; }
    bool keepsOpaque() const { return false; }
    ChangeRow row(const Rect&, const PixelRect&) const;
};

}
