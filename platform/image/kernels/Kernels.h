#pragma once

#include "platform/image/kernels/Columns.h"
#include "platform/image/kernels/Line.h"

#include <cstddef>
#include <cstdint>

/// The inner loops of all drawing: rows of samples and pixels, in whole numbers only, so that every
/// instruction set gives the same bytes. They know nothing of images. The tests hold each against a
/// formula or a plain way.
///
/// Between source and pixel a sample has 15 bits ("a level" is 128 of them): 8-bit samples times 128, deeper
/// ones likewise aligned.
namespace murbo::Kernels {

/// How stored samples become 15 bits: (stored << left) >> right.
struct SampleDepth {
    int bytes = 1; ///< 1 or 2 a sample
    int left = 7;
    int right = 0;
};

/// Blends `taps` rows into one by differences from the first (see Taps).
void blendRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, SampleDepth depth,
               int count, std::int16_t* out);

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
struct YCbCrMatrix {
    std::int16_t luma = 0;
    std::int16_t redV = 0;
    std::int16_t greenU = 0;
    std::int16_t greenV = 0;
    std::int16_t blueU = 0;
    std::int16_t bias = 0; ///< black's place, and what rounds
};

/// Rows of 15-bit Y', Cb, Cr to opaque pixels.
void colourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const YCbCrMatrix& matrix, std::uint8_t* out);

/// The same through a cube of colours, for pictures in another space than sRGB. The matrix' scale ends at
/// 8192; a cube has 33 steps a side, red outermost, each entry blue, green, red of 10 bits, a level being 4.
inline constexpr int cubeSide = 33;
void colourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const YCbCrMatrix& matrix, const std::uint32_t* cube, std::uint8_t* out);

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
/// The sum of both, alpha too, at most 255.
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
void affineRow(const Texture& texture, const Line& u, const Line& v, int from, int to, std::uint8_t* out);

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

// The inner loops of filters: rows of premultiplied pixels, changed in place where nothing else is said.
// Colours are worked out straight, rounded to levels where alpha is below 255; alpha stays.

/// Weighted sums of channels, then bent.
struct ColourSums {
    /// For blue, green and red in turn: shares of blue, green, red and of full light, in 1/4096.
    std::int16_t shares[3][4];
    /// For blue, green and red: what lifts the middle, in 1/2^15; up to a quarter.
    std::int16_t lift[3];
    std::int16_t contrast; ///< what steepens the middle, likewise
    bool bent;             ///< whether there is lift or contrast
};
void sumColours(const ColourSums& sums, int count, std::uint8_t* pixels);

/// Each channel to the nearest of 2 to 256 even steps.
void posterize(int levels, int count, std::uint8_t* pixels);

/// A cube of premultiplied pixels, red running fastest, `side` a channel and at least 2; after it stand
/// `side`² + `side` + 1 more that weigh nothing.
struct ColourTable {
    int side;
    const std::uint32_t* entries;
};
/// Tetrahedral between the cube's entries, in 1/256 of their distance; then times the pixel's own alpha.
void lookUpColours(const ColourTable& table, int count, std::uint8_t* pixels);

/// Each pixel times light[across[i] + down], in 1/2^15. What rounds differs from place to place (x, y), so
/// that slow changes show no steps.
void vignetteRow(const std::int32_t* across, int down, const std::uint32_t* light, int x, int y, int count,
                 std::uint8_t* pixels);

/// Each channel, alpha too, times shares[brightness of the pixel] in 1/255, the share standing in both
/// halves.
void keepBright(const std::uint32_t* shares, int count, std::uint8_t* pixels);

/// What an old tape makes of a row.
struct VhsRow {
    const std::uint32_t* grain; ///< for each pixel, where its grain of noise starts
    std::uint32_t seed;         ///< of the row and the moment
    int whole;                  ///< red comes from that many pixels to the left,
    int part;                   ///< and that many 1/256
    int noise;                  ///< the largest amount that is added, in 1/256 of full light
    int floor;                  ///< the smallest
    int light;                  ///< what lines leave, in 1/2^15
};
/// `in` can be read `whole` + 1 pixels before its start.
void vhsRow(const VhsRow& tape, const std::uint8_t* in, int count, std::uint8_t* out);

/// Evens out what differs little: to the first of `taps` rows the differences of the others are added, each
/// times its weight in 1/2^15 and times a share that falls from 1 for no difference to 0 for full light / 2
/// to the power of `tolerance`.
void evenOutRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, SampleDepth depth,
                 int tolerance, int count, std::int16_t* out);

/// Brightness (ITU-R BT.709) in 15 bits.
void brightnessRow(const std::uint8_t* pixels, int count, std::int16_t* out);

/// Sets alpha to how far `fine` lies below `coarse`: 128 + steep · (coarse − fine), a level of difference
/// being 128 and `steep` in 1/16.
void inkRow(const std::int16_t* fine, const std::int16_t* coarse, int steep, int count, std::uint8_t* pixels);

/// How a comic is printed.
struct ComicRow {
    const std::int16_t* screen; ///< for each pixel, the dots' share of the column, in 1/2^15
    int down;                   ///< that of the row
    const std::uint32_t* tones; ///< for each brightness of 0 to 255 the tone, 0 to 255
    int colour;                 ///< how much stronger colours are, in 1/16
    int minInk;                 ///< the alpha at which ink begins
    int steep;                  ///< how much blacker it gets with each level
};
/// Turns pixels whose alpha says where ink is into opaque ones.
void comicRow(const ComicRow& print, int count, std::uint8_t* pixels);

/// Sets the pixels' alpha to the others'; the colours were opaque.
void takeAlpha(const std::uint8_t* others, int count, std::uint8_t* pixels);

}
