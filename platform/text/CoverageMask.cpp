#include "platform/text/CoverageMask.h"

namespace murbo {

namespace {

/// a·b/255, rounded, for 0 to 255.
std::uint32_t times(std::uint32_t a, std::uint32_t b) {
    const std::uint32_t product = a * b + 128;
    return (product + (product >> 8)) >> 8;
}

/// One box over `count` samples, `before` to the left and `after` to the right of each; outside counts as 0.
void boxRow(const std::uint8_t* from, std::uint8_t* to, int count, int before, int after) {
    const auto share = std::uint32_t((1U << 24) / std::uint32_t(before + after + 1));
    std::uint32_t sum = 0;
    for (int at = 0; at < std::min(after, count); ++at) sum += from[at];
    for (int at = 0; at < count; ++at) {
        if (at + after < count) sum += from[at + after];
        to[at] = std::uint8_t((sum * share + (1U << 23)) >> 24);
        if (at - before >= 0) sum -= from[at - before];
    }
}

/// The same down the columns of a plane, all columns at once.
void boxColumns(const std::uint8_t* from, std::uint8_t* to, int width, int height, int before, int after) {
    const auto share = std::uint32_t((1U << 24) / std::uint32_t(before + after + 1));
    std::vector<std::uint32_t> sums(std::size_t(width), 0);
    const auto addRow = [&](int y, std::uint32_t sign) {
        if (y < 0 || y >= height) return;
        const std::uint8_t* row = from + std::ptrdiff_t(y) * width;
        for (int x = 0; x < width; ++x) sums[std::size_t(x)] += sign * row[x];
    };
    for (int y = 0; y < after; ++y) addRow(y, 1);
    for (int y = 0; y < height; ++y) {
        addRow(y + after, 1);
        std::uint8_t* row = to + std::ptrdiff_t(y) * width;
        for (int x = 0; x < width; ++x)
            row[x] = std::uint8_t((sums[std::size_t(x)] * share + (1U << 23)) >> 24);
        addRow(y - before, std::uint32_t(-1));
    }
}

/// A colour made ready to be laid on: two channels in each word, 16 bits apart.
struct PreparedColour {
    std::uint32_t blueRed;
    std::uint32_t greenAlpha;
    std::uint32_t opaque; ///< the pixel where it covers all, or 0 for a colour that lets through
    std::uint32_t alpha;

    explicit PreparedColour(Colour colour) : alpha(colour.alpha) {
        blueRed = times(colour.blue, alpha) | times(colour.red, alpha) << 16;
        greenAlpha = times(colour.green, alpha) | alpha << 16;
        opaque = alpha == 255 ? blueRed | greenAlpha << 8 : 0;
    }
};

/// `times` on two channels at once.
std::uint32_t timesBoth(std::uint32_t pair, std::uint32_t factor) {
    const std::uint32_t product = pair * factor + 0x00800080U;
    return ((product + ((product >> 8) & 0x00FF00FFU)) >> 8) & 0x00FF00FFU;
}

void paintPixel(std::uint8_t* pixel, std::uint32_t cover, const PreparedColour& ink) {
    std::uint32_t below;
    std::memcpy(&below, pixel, 4);
    const std::uint32_t left = 255 - times(ink.alpha, cover);
    const std::uint32_t blueRed = timesBoth(ink.blueRed, cover) + timesBoth(below & 0x00FF00FFU, left);
    const std::uint32_t greenAlpha =
        timesBoth(ink.greenAlpha, cover) + timesBoth((below >> 8) & 0x00FF00FFU, left);
    const std::uint32_t result = blueRed | greenAlpha << 8;
    std::memcpy(pixel, &result, 4);
}

/// Most of a caption is empty and most of the rest is full: both are found eight pixels at a time.
void paintRow(const std::uint8_t* cover, std::uint8_t* to, int from, int end, const PreparedColour& ink) {
    for (int at = from; at < end;) {
        std::uint64_t eight = 1;
        if (at + 8 <= end) std::memcpy(&eight, cover + at, 8);
        const bool full = ink.opaque && eight == ~std::uint64_t(0);
        const int stop = std::min(at + 8, end);
        if (full)
            for (int pixel = at; pixel < stop; ++pixel)
                std::memcpy(to + std::ptrdiff_t(pixel) * 4, &ink.opaque, 4);
        else if (eight != 0)
            for (int pixel = at; pixel < stop; ++pixel)
                paintPixel(to + std::ptrdiff_t(pixel) * 4, cover[pixel], ink);
        at = stop;
    }
}

}

CoverageMask::CoverageMask(int width, int height)
    : pixelsWide(width), pixelsHigh(height), pixels(std::size_t(width) * std::size_t(height)) {}

void CoverageMask::add(const std::vector<std::uint8_t>& shape, int shapeWidth, int shapeHeight, int x,
                       int y) {
    const int left = std::max(0, -x);
    const int right = std::min(shapeWidth, pixelsWide - x);
    for (int line = std::max(0, -y); line < std::min(shapeHeight, pixelsHigh - y); ++line) {
        const std::uint8_t* from = shape.data() + std::ptrdiff_t(line) * shapeWidth;
        std::uint8_t* to = row(y + line) + x;
        for (int at = left; at < right; ++at) to[at] = std::uint8_t(to[at] + times(255U - to[at], from[at]));
    }
}

void CoverageMask::blur(double sigma) {
    const int size = int(std::lround(sigma * 1.8799712059732503)); // 3·√(2π)/4
    if (size < 2) return;
    // An even box is half a pixel off to one side, then to the other, then one wider and centred.
    const int half = size / 2;
    const std::array<std::pair<int, int>, 3> boxes =
        size % 2 ? std::array{std::pair{half, half}, std::pair{half, half}, std::pair{half, half}}
                 : std::array{std::pair{half, half - 1}, std::pair{half - 1, half}, std::pair{half, half}};
    std::vector<std::uint8_t> other(pixels.size());
    for (const auto& [before, after] : boxes) {
        for (int y = 0; y < pixelsHigh; ++y)
            boxRow(row(y), other.data() + std::ptrdiff_t(y) * pixelsWide, pixelsWide, before, after);
        boxColumns(other.data(), pixels.data(), pixelsWide, pixelsHigh, before, after);
    }
}

void CoverageMask::paint(Bitmap& target, Colour colour, int x, int y) const {
    const PreparedColour ink(colour);
    const int left = std::max(0, -x);
    const int right = std::min(pixelsWide, target.width() - x);
    for (int line = std::max(0, -y); line < std::min(pixelsHigh, target.height() - y); ++line)
        paintRow(row(line), target.row(line + y) + std::ptrdiff_t(x) * 4, left, right, ink);
}

}
