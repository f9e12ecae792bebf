#pragma once

#include "platform/image/Filter.h"

namespace murbo::Filters {

/// Gaussian.
struct Blur {
    double sigma = 0; ///< deviation, pixels

    std::optional<Blur> clamped(const Rect& body) const;
    double reach() const { return sigma * 3; }
    /// Whether it is to be seen at all; then it is drawn as coarsely as it may.
    bool drawsCoarsely(const Transform& place) const;
    DrawTile draw(const PictureSource& source, const Transform& place, const PixelRect& bounds,
                  const std::vector<ChangeRow>& rows) const;
};

}
