#pragma once

#include "platform/image/kernels/Taps.h"

#include <cstddef>
#include <cstdint>

/// The inner loops of all drawing: rows of samples and pixels, in whole numbers only, so that every
/// instruction set gives the same bytes. They know nothing of images. Each has a slow, obvious twin in the
/// tests.
///
/// Between source and pixel a sample has 15 bits ("a level" is 128 of them): 8-bit samples times 128, deeper
/// ones likewise aligned.
namespace murbo::Kernels {

/// How stored samples become 15 bits: (stored << left) >> right.
struct Depth {
    int bytes = 1; ///< 1 or 2 a sample
    int left = 7;
    int right = 0;
};

/// Blends `taps` rows into one by differences from the first (see Taps).
void blendRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, Depth depth, int count,
               std::int16_t* out);

/// Resamples a row: `in` starts at sample `columns.taps.low` and may be read up to `slack` values past its
/// end. Outputs `from` to `to` are written to `out`; `from` stands at the start of a group, and the last
/// group is written whole.
inline constexpr int slack = 32;
void resampleRow(const Columns& columns, int from, int to, const std::int16_t* in, std::int16_t* out);

/// Takes samples that lie in pairs apart.
void splitPairs(const std::int16_t* in, int count, std::int16_t* first, std::int16_t* second);

/// 15-bit pixels to bytes; `opaque` sets their alpha.
void packPixels(const std::int16_t* in, int pixels, bool opaque, std::uint8_t* out);

/// Y'CbCr to R'G'B': factors in 1/2^13 onto a scale where one level is 32.
struct Matrix {
    std::int16_t luma = 0;
    std::int16_t redV = 0;
    std::int16_t greenU = 0;
    std::int16_t greenV = 0;
    std::int16_t blueU = 0;
    std::int16_t bias = 0; ///< black's place, and what rounds
};

/// Rows of 15-bit Y', Cb, Cr to opaque pixels.
void colourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const Matrix& matrix, std::uint8_t* out);

/// The same through a cube of colours, for pictures in another space than sRGB. The matrix' scale ends at
/// 8192; a cube has 33 steps a side, red outermost, each entry blue, green, red of 10 bits, a level being 4.
inline constexpr int cubeSide = 33;
void colourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const Matrix& matrix, const std::uint32_t* cube, std::uint8_t* out);

/// Times alpha (15 bits), for pixels whose alpha is a plane of its own.
void multiplyAlpha(const std::int16_t* alpha, int count, std::uint8_t* pixels);
/// Straight pixels to premultiplied ones.
void premultiply(std::uint8_t* pixels, int count);

// Pixels on pixels. Products with alpha are rounded: (x·a + 127) / 255.
void fill(std::uint32_t pixel, int count, std::uint8_t* out);
void over(const std::uint8_t* above, int count, std::uint8_t* pixels);
void over(std::uint32_t above, int count, std::uint8_t* pixels);
void fade(int opacity, int count, std::uint8_t* pixels);
/// The mean with two other pixels, to the nearest level.
void meanOfThree(const std::uint8_t* ones, const std::uint8_t* others, int count, std::uint8_t* pixels);

/// Each channel times the alpha of the mask's pixel.
void mask(const std::uint8_t* masks, int count, std::uint8_t* pixels);

// Pixels mixed with those below: W3C Compositing and Blending Level 1, section 10, on premultiplied pixels;
// alpha as with `over`. Each is worked out in whole numbers and rounded once.
void multiply(const std::uint8_t* above, int count, std::uint8_t* pixels);
void screen(const std::uint8_t* above, int count, std::uint8_t* pixels);
void overlay(const std::uint8_t* above, int count, std::uint8_t* pixels);
void softLight(const std::uint8_t* above, int count, std::uint8_t* pixels);
/// The sum of both, alpha too, held at 255.
void add(const std::uint8_t* above, int count, std::uint8_t* pixels);

/// A bitmap to be sampled at any angle. Positions beyond the edges repeat the edge.
struct Texture {
    const std::uint8_t* pixels = nullptr;
    std::ptrdiff_t stride = 0;
    int width = 0;
    int height = 0;
};

/// Pixels `from` to `to` of a row, bilinear between texel middles: pixel i looks at (u.at(i), v.at(i)),
/// measured in texels from the middle of the first.
void turnRow(const Texture& texture, const Line& u, const Line& v, int from, int to, std::uint8_t* out);

/// Each pixel becomes the mean of those up to `reach` (in 1/64 pixel, at least 32) to either side. The row's
/// ends repeat.
void smearRow(const std::uint8_t* in, int count, int reach, std::uint8_t* out);

/// Turns a block of pixels over its diagonal.
void transpose(const std::uint8_t* in, std::ptrdiff_t inStride, int width, int height, std::uint8_t* out,
               std::ptrdiff_t outStride);

/// Pixels over black to limited-range BT.709 samples: one row of Y', and from two rows one of Cb and Cr,
/// sited on the left pixel of each pair.
void lumaRow(const std::uint8_t* pixels, int count, std::uint8_t* y);
void chromaRow(const std::uint8_t* upper, const std::uint8_t* lower, int count, std::uint8_t* cb,
               std::uint8_t* cr);

}
