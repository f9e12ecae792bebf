#pragma once

#include "platform/image/Colour.h"
#include "platform/image/Geometry.h"

#include <array>
#include <cstdint>
#include <memory>
#include <variant>
#include <vector>

namespace murbo {

/// How a picture's colours are mixed with those below (W3C Compositing and Blending Level 1; `add` is a sum).
enum class Blend : std::uint8_t { normal, multiply, screen, overlay, add, softLight };

/// Every colour becomes a weighted sum of its channels, bent then. Straight (not premultiplied) colours from
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
    /// Brighter by so much in the middle, black and white staying; below 0 darker, black alone staying.
    static ColourMatrix brightened(double by);
    static ColourMatrix contrasted(double factor); ///< round middle grey
    static ColourMatrix inverted();
    static ColourMatrix grey();                ///< black-and-white film, a touch of contrast
    static ColourMatrix sepia(double amount);  ///< 0 to 1
    static ColourMatrix tinted(Colour colour); ///< shades of one colour, white becoming the colour itself
};

/// Colours by table: premultiplied red, green, blue, alpha from 0 to 1 for `side` steps a channel, red
/// running fastest, straight colours looking up between them. The picture's own alpha multiplies the result.
struct ColourCube {
    int side = 32;
    std::shared_ptr<const std::vector<float>> values;
};

/// Each channel in `levels` even steps.
struct Posterised {
    int levels = 6;
};

/// Gaussian, deviation in pixels.
struct Blurred {
    double sigma = 0;
};

/// The picture's light spreading over its surroundings.
struct Bloomed {
    double radius = 0;    ///< pixels
    double intensity = 0; ///< 0 to 1
};

/// Squares of one colour each, one of them round `middle`.
struct Pixellated {
    double size = 1; ///< pixels
    Point middle;
};

/// Darker towards the corners of the picture.
struct Vignetted {
    double intensity = 0;
    double radius = 0; ///< 1 leaves about the middle half bright
};

/// Printed comic: few colours, dots in the shades, ink along the edges.
struct Inked {};

/// An old tape: pale, red bleeding to the right, noise that jumps and lines that run.
struct Taped {
    double bleed = 6;       ///< pixels
    double lines = 0;       ///< pixels that the lines have run down
    std::int64_t noise = 0; ///< which of its pictures
};

/// What can be done to all of a picture at once. Lengths are in the pixels of the picture that is filtered:
/// they grow and shrink with it.
using Filter =
    std::variant<ColourMatrix, ColourCube, Posterised, Blurred, Bloomed, Pixellated, Vignetted, Inked, Taped>;

}
