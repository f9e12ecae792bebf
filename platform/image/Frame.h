#pragma once

#include "platform/image/Geometry.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace murbo {

/// A decoded picture in its decoder's own planes, with all that is needed to sample it where it lies.
///
/// Nothing is converted on the way in: a crop that shows a third of the picture reads a third of it. `keeper`
/// holds the planes; a frame is copied by pointers and may be read from any thread.
struct Frame {
    /// How the samples lie. All but `bgra` are Y'CbCr (`grey` without chroma).
    enum class Layout : std::uint8_t { grey, chroma420, chroma422, chroma444, bgra };
    enum class Matrix : std::uint8_t { bt601, bt709, bt2020 };
    enum class Transfer : std::uint8_t { sdr, hlg, pq };
    enum class Primaries : std::uint8_t { bt709, bt2020 };
    enum class ChromaSite : std::uint8_t { left, centre, topLeft };

    int width = 0; ///< of the stored picture, in stored pixels
    int height = 0;
    Layout layout = Layout::chroma420;
    int depth = 8;         ///< bits a sample; above 8 each sample is a little-endian 16-bit word
    bool highBits = false; ///< the sample stands in the word's high bits (P010), else in its low bits
    bool interleavedChroma = false; ///< Cb and Cr side by side in plane 1 (NV12)
    bool hasAlpha = false;          ///< plane 3 (Y'CbCr), or the fourth byte (`bgra`), straight
    bool fullRange = false;
    Matrix matrix = Matrix::bt709;
    Transfer transfer = Transfer::sdr;
    Primaries primaries = Primaries::bt709;
    ChromaSite chromaSite = ChromaSite::left;

    std::array<const std::uint8_t*, 4> planes{}; ///< Y, Cb, Cr, A; or BGRA in the first
    std::array<std::ptrdiff_t, 4> strides{};     ///< bytes from row to row; may be negative

    int turn = 0;           ///< quarter turns clockwise that bring the picture upright, 0 to 3
    double pixelAspect = 1; ///< width of a stored pixel over its height, before the turn

    std::shared_ptr<const void> keeper;

    /// Size of the picture as it is looked at: pixel aspect and turn applied, in square pixels. The height
    /// of a stored row stays; a wide pixel makes the picture wider.
    Size uprightSize() const;

    /// From upright square pixels to stored pixels.
    Transform toStored() const;
};

}
