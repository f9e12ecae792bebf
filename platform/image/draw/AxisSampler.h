#pragma once

#include "platform/image/Frame.h"
#include "platform/image/draw/Raster.h"
#include "platform/image/kernels/Kernels.h"

#include <memory>
#include <vector>

namespace murbo {

/// Pixels of a picture seen through a transform that keeps axes: sampled where the picture lies, row by row,
/// filtered along each axis by itself. Made for one drawing of one area; one thread at a time.
class AxisSampler {
public:
    /// `toGrid` leads from the canvas to the raster's grid; `bounds` is all that will be asked. Pixels of
    /// `limits` may be shown; beyond them the edge repeats.
    AxisSampler(const Raster& raster, const Transform& toGrid, const PixelRect& bounds,
                const PixelRect& limits);
    /// The same for a frame, `toStored` leading to its stored pixels. Where it has alpha, colours of pixels
    /// are straight until they are filtered: ask for such a frame's own pixels only.
    AxisSampler(const Frame& frame, const Transform& toStored, const PixelRect& bounds,
                const PixelRect& limits);

    /// Draws every pixel of the tile, which lies within the bounds.
    void fill(const Tile& tile);

private:
    /// Where the samples of planes of one size fall on the canvas.
    struct Axes;
    /// One plane, of one, two or four values a sample.
    struct SampledPlane {
        const std::uint8_t* samples = nullptr; ///< the one at 0, 0
        std::ptrdiff_t stride = 0;
        int values = 1;
        Kernels::SampleDepth depth;
        std::shared_ptr<const Axes> axes;
    };

    void addPlane(const std::uint8_t* samples, std::ptrdiff_t stride, int values, Kernels::SampleDepth depth,
                  std::shared_ptr<const Axes> axes);
    void samplePlane(const SampledPlane& plane, int y, int from, int to, int channel);
    void row(int y, int from, int to, std::uint8_t* out);
    void colour(int skipped, int count, std::uint8_t* out);
    void fillTurned(const Tile& tile);

    bool swapped = false; ///< rows of the canvas are columns of the picture
    bool opaque = false;
    bool alpha = false;
    std::vector<SampledPlane> planes;
    Kernels::YCbCrMatrix matrix;
    const std::uint32_t* cube = nullptr;
    std::shared_ptr<const void> keeper;
    Bitmap bitmap;
    std::vector<std::int16_t> blended;
    std::vector<std::int16_t> pairs;
    std::vector<std::int16_t> channels[4]; ///< of a row, at the canvas' width
    std::vector<const std::uint8_t*> rows; ///< of a plane, that one of the canvas is blended of
};

}
