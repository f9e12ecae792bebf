#pragma once

#include "platform/image/Colour.h"
#include "platform/image/Filter.h"

#include <array>

namespace murbo::Filters {

/// Every colour becomes a weighted sum of its channels, then bent. Straight (not premultiplied) colours from
/// 0 to 1; what falls outside is cut off. Alpha stays.
struct ColourMatrix {
    /// For red, green and blue: the shares of red, green, blue, and what is added; each within -8 to 8.
    std::array<std::array<double, 4>, 3> rows{{{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}}};
    /// How far the middle of red, green and blue is raised, black and white staying: v + 4·lift·v·(1 − v),
    /// within a quarter.
    std::array<double, 3> lift{};
    /// How much the middle is steepened in an S, within a quarter: v + 4·contrast·v·(1 − v)·(2·v − 1).
    double contrast = 0;

    static ColourMatrix saturated(double factor); ///< 0 is grey, 1 changes nothing
    /// Brighter by that much in the middle, black and white staying; below 0 darker, black alone staying.
    static ColourMatrix brightened(double by);
    static ColourMatrix inverted();
    static ColourMatrix mono();                ///< black-and-white film, a touch of contrast
    static ColourMatrix sepia(double amount);  ///< 0 to 1
    static ColourMatrix tinted(Colour colour); ///< shades of one colour, white becoming the colour itself

    std::optional<ColourMatrix> clamped(const Rect&) const;
    bool byPixel() const { return true; }
    bool sumsColours() const { return true; }
    ChangeRow row(const Rect&, const PixelRect&) const;
};

}
