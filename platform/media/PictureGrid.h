#pragma once

#include <cmath>
#include <optional>

namespace murbo {

/// The even spacing at which the pictures of a track were made. Many files round the time of each picture, to
/// whole milliseconds or to ticks of their own; the spacing gives back what was rounded off.
struct PictureGrid {
    double first = 0;   ///< when the first picture comes on, in seconds
    double spacing = 0; ///< from one picture to the next, in seconds; 0 where none is known

    /// When the picture comes on that has its place within `reach` seconds of a time; nothing where there is
    /// none.
    std::optional<double> near(double time, double reach) const {
        if (!(spacing > 0)) return std::nullopt;
        const double even = first + std::round((time - first) / spacing) * spacing;
        return std::abs(even - time) <= reach ? std::optional(even) : std::nullopt;
    }
};

}
