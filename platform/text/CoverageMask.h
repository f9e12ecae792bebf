#pragma once

#include "platform/image/Bitmap.h"
#include "platform/image/Colour.h"

#include <cstdint>
#include <vector>

namespace murbo {

/// A plane of coverage, 0 to 255 a pixel: what is gathered here is coloured once, so that overlapping shapes
/// of a colour that lets through don't show their overlaps.
class CoverageMask {
public:
    CoverageMask(int width, int height);

    int width() const { return pixelsWide; }
    int height() const { return pixelsHigh; }
    std::uint8_t* row(int y) { return pixels.data() + std::ptrdiff_t(y) * pixelsWide; }
    const std::uint8_t* row(int y) const { return pixels.data() + std::ptrdiff_t(y) * pixelsWide; }

    /// Adds a shape of `shapeWidth` by `shapeHeight` with its top left at (`x`, `y`); what lies outside is
    /// left out.
    void add(const std::vector<std::uint8_t>& shape, int shapeWidth, int shapeHeight, int x, int y);

    /// Blurred as by a Gaussian of deviation `sigma` in pixels, by three boxes (as SVG's feGaussianBlur
    /// does).
    void blur(double sigma);

    /// Colours `target` where the mask covers it, the mask moved by (`x`, `y`).
    void paint(Bitmap& target, Colour colour, int x = 0, int y = 0) const;

private:
    int pixelsWide;
    int pixelsHigh;
    std::vector<std::uint8_t> pixels;
};

}
