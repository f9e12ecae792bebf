#pragma once

#include "platform/image/kernels/Kernels.h"

#include <cstddef>
#include <cstdint>

/// The inner loops of filters: rows of premultiplied pixels, changed in place where nothing else is said. In
/// whole numbers only, as all kernels. Colours are reckoned straight, rounded to levels where alpha is below
/// 255; alpha stays.
namespace murbo::Kernels {

/// Weighted sums of channels, bent then.
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
void posterise(int levels, int count, std::uint8_t* pixels);

/// A cube of premultiplied pixels, red running fastest, `side` a channel and at least 2; behind it stand
/// `side`² + `side` + 1 more that weigh nothing.
struct ColourTable {
    int side;
    const std::uint32_t* entries;
};
/// Tetrahedral between the cube's entries, in 1/256 of their distance; then times the pixel's own alpha.
void lookUpColours(const ColourTable& table, int count, std::uint8_t* pixels);

/// Each pixel times light[across[i] + down], in 1/2^15. What rounds differs from place to place (x, y), so
/// that slow changes show no steps.
void shadeRow(const std::int32_t* across, int down, const std::uint32_t* light, int x, int y, int count,
              std::uint8_t* pixels);

/// Each channel, alpha too, times shares[brightness of the pixel] in 1/255, the share standing in both
/// halves.
void keepBright(const std::uint32_t* shares, int count, std::uint8_t* pixels);

/// What an old tape makes of a row.
struct TapeRow {
    const std::uint32_t* grain; ///< for each pixel, where its grain of noise starts
    std::uint32_t seed;         ///< of the row and the moment
    int whole;                  ///< red comes from so many pixels to the left,
    int part;                   ///< and so many 1/256
    int noise;                  ///< the most that is added, in 1/256 of full light
    int floor;                  ///< the least
    int light;                  ///< what lines leave, in 1/2^15
};
/// `in` can be read `whole` + 1 pixels before its start.
void tapeRow(const TapeRow& tape, const std::uint8_t* in, int count, std::uint8_t* out);

/// Evens out what differs little: to the first of `taps` rows the differences of the others are added, each
/// times its weight in 1/2^15 and times a share that falls from 1 for no difference to 0 for full light / 2
/// to the power of `tolerance`.
void evenOutRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, Depth depth,
                 int tolerance, int count, std::int16_t* out);

/// Brightness (ITU-R BT.709) in 15 bits.
void brightnessRow(const std::uint8_t* pixels, int count, std::int16_t* out);

/// Sets alpha to how far `fine` lies below `coarse`: 128 + steep · (coarse − fine), a level of difference
/// being 128 and `steep` in 1/16.
void inkRow(const std::int16_t* fine, const std::int16_t* coarse, int steep, int count, std::uint8_t* pixels);

/// How a comic is printed.
struct PrintRow {
    const std::int16_t* screen; ///< for each pixel, the dots' share of the column, in 1/2^15
    int down;                   ///< that of the row
    const std::uint32_t* tones; ///< for each brightness of 0 to 255 the tone, 0 to 255
    int colour;                 ///< how much stronger colours are, in 1/16
    int least;                  ///< the alpha at which ink begins
    int steep;                  ///< how much blacker it gets with each level
};
/// Opaque pixels out of such whose alpha tells where ink is.
void printRow(const PrintRow& print, int count, std::uint8_t* pixels);

/// Sets the pixels' alpha to the others'; the colours were opaque.
void takeAlpha(const std::uint8_t* others, int count, std::uint8_t* pixels);

}
