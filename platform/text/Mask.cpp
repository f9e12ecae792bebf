#include "platform/text/Mask.h"

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
        to[at] = std::uint8_t((std::uint64_t(sum) * share + (1U << 23)) >> 24);
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
            row[x] = std::uint8_t((std::uint64_t(sums[std::size_t(x)]) * share + (1U << 23)) >> 24);
        addRow(y - before, std::uint32_t(-1));
    }
}

}

Mask::Mask(int width, int height)
    : pixelsWide(width), pixelsHigh(height), pixels(std::size_t(width) * std::size_t(height)) {}

void Mask::add(const std::vector<std::uint8_t>& shape, int shapeWidth, int shapeHeight, int x, int y) {
    const int left = std::max(0, -x);
    const int right = std::min(shapeWidth, pixelsWide - x);
    for (int line = std::max(0, -y); line < std::min(shapeHeight, pixelsHigh - y); ++line) {
        const std::uint8_t* from = shape.data() + std::ptrdiff_t(line) * shapeWidth;
        std::uint8_t* to = row(y + line) + x;
        for (int at = left; at < right; ++at) to[at] = std::uint8_t(to[at] + times(255U - to[at], from[at]));
    }
}

void Mask::blur(double sigma) {
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

void Mask::paint(Bitmap& target, Colour colour, int x, int y) const {
    const std::array<std::uint32_t, 4> source{times(colour.blue, colour.alpha),
                                              times(colour.green, colour.alpha),
                                              times(colour.red, colour.alpha), colour.alpha};
    const int left = std::max(0, -x);
    const int right = std::min(pixelsWide, target.width() - x);
    for (int line = std::max(0, -y); line < std::min(pixelsHigh, target.height() - y); ++line) {
        const std::uint8_t* cover = row(line);
        std::uint8_t* to = target.row(line + y) + std::ptrdiff_t(x) * 4;
        for (int at = left; at < right; ++at) {
            const std::uint32_t below = 255 - times(colour.alpha, cover[at]);
            for (std::size_t channel = 0; channel < 4; ++channel) {
                std::uint8_t& pixel = to[std::size_t(at) * 4 + channel];
                pixel = std::uint8_t(times(source[channel], cover[at]) + times(pixel, below));
            }
        }
    }
}

}
