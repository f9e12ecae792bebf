#include "platform/vision/MaskRefinement.h"

#include "platform/vision/BilinearResize.h"
#include "platform/vision/MaskKernels.h"
#include "platform/vision/NetworkKernels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace murbo {

// A guided filter (He, Sun, Tang, "Guided Image Filtering", 2013): near each place the mask is taken to be
// the picture's three colours times a factor each, plus a constant. Those that fit best are found at the
// network's size, averaged, and applied to the picture's own pixels. Where the mask is all 0 or all 1 it
// stays so; where it changes, it changes with the colours. With brightness alone, skin in front of an
// equally bright wall would get a halo.

namespace {

constexpr int shrunk = 2; ///< the factors change slowly: half the network's size is enough to find them
constexpr int radius = 2; ///< of a neighbourhood, in pixels of that
constexpr int across = 2 * radius + 1;
constexpr int neighbours = across * across;
constexpr double calm = 1e-4 * 255 * 255; ///< colours that vary by less than this, squared, move nothing
// Below, the network's haze and the fringe of the background are cut off; above, its doubts inside a body.
constexpr MaskKernels::Curve kept{0.25f, 0.85f};

struct Plane {
    Plane(int wide, int high) : width(wide), height(high), numbers(std::size_t(wide) * high) {}
    float* row(int y) { return numbers.data() + std::size_t(std::clamp(y, 0, height - 1)) * width; }
    const float* row(int y) const {
        return numbers.data() + std::size_t(std::clamp(y, 0, height - 1)) * width;
    }
    int width;
    int height;
    std::vector<float> numbers;
};

/// Sums of products over the neighbourhoods along a row that goes down the picture. Beyond its edges the
/// picture repeats its last pixels. Of whole numbers the sums are exact: they stay below 2^24.
class Sums {
public:
    Sums(const Plane& first, const Plane& second)
        : one(first), other(second), columns(std::size_t(first.width) + 2 * radius), spare(columns.size()) {
        for (int above = -radius - 1; above < radius; ++above) change(one.row(above), other.row(above), 1);
    }

    /// Of the next row: 0 at first.
    void next(float* __restrict sums) {
        change(one.row(y + radius), other.row(y + radius), 1);
        change(one.row(y - radius - 1), other.row(y - radius - 1), -1);
        ++y;
        const std::size_t wide = columns.size();
        std::fill_n(columns.begin(), radius, columns[radius]);
        std::fill_n(columns.end() - radius, radius, columns[wide - radius - 1]);
        // Five by doubling: two, four, and one more.
        static_assert(across == 5);
        const float* __restrict c = columns.data();
        float* __restrict s = spare.data();
        for (std::size_t x = 0; x + 1 < wide; ++x) s[x] = c[x] + c[x + 1];
        for (std::size_t x = 0; x + 4 < wide; ++x) sums[x] = (s[x] + s[x + 2]) + c[x + 4];
    }

private:
    void change(const float* __restrict a, const float* __restrict b, float sign) {
        float* __restrict sums = columns.data() + radius;
        const std::size_t width = columns.size() - 2 * radius;
        for (std::size_t x = 0; x < width; ++x) sums[x] += a[x] * b[x] * sign;
    }

    const Plane& one;
    const Plane& other;
    std::vector<float> columns, spare;
    int y = 0;
};

enum { blue, green, red, mask, ones };

/// What to multiply blue, green and red by, and what to add.
using Fit = std::array<Plane, 4>;

/// The factors that fit one row best: least squares, its three equations solved by cofactors. In grey
/// pictures these nearly cancel out, hence in double.
void fitRow(const std::vector<std::vector<float>>& rows, std::size_t width, float* __restrict toBlue,
            float* __restrict toGreen, float* __restrict toRed, float* __restrict constant) {
    const float* __restrict sum[13];
    for (int k = 0; k < 13; ++k) sum[k] = rows[k].data();
    constexpr double each = 1. / neighbours;
    for (std::size_t x = 0; x < width; ++x) {
        const double b = sum[0][x] * each, g = sum[1][x] * each, r = sum[2][x] * each, m = sum[3][x] * each;
        const double bb = sum[4][x] * each - b * b + calm;
        const double bg = sum[5][x] * each - b * g;
        const double br = sum[6][x] * each - b * r;
        const double gg = sum[7][x] * each - g * g + calm;
        const double gr = sum[8][x] * each - g * r;
        const double rr = sum[9][x] * each - r * r + calm;
        const double bm = sum[10][x] * each - b * m;
        const double gm = sum[11][x] * each - g * m;
        const double rm = sum[12][x] * each - r * m;
        const double c00 = gg * rr - gr * gr, c01 = br * gr - bg * rr, c02 = bg * gr - br * gg;
        const double c11 = bb * rr - br * br, c12 = bg * br - bb * gr, c22 = bb * gg - bg * bg;
        const double scale = 1 / (bb * c00 + bg * c01 + br * c02);
        const double forBlue = (c00 * bm + c01 * gm + c02 * rm) * scale;
        const double forGreen = (c01 * bm + c11 * gm + c12 * rm) * scale;
        const double forRed = (c02 * bm + c12 * gm + c22 * rm) * scale;
        toBlue[x] = float(forBlue);
        toGreen[x] = float(forGreen);
        toRed[x] = float(forRed);
        constant[x] = float(m - forBlue * b - forGreen * g - forRed * r);
    }
}

/// Means of squares of pixels, as whole numbers.
std::array<Plane, 5> planes(const Bitmap& small, std::span<const float> likely) {
    const Plane empty(small.width() / shrunk, small.height() / shrunk);
    std::array<Plane, 5> result{empty, empty, empty, empty, empty};
    constexpr int square = shrunk * shrunk;
    for (int y = 0; y < empty.height; ++y)
        for (int x = 0; x < empty.width; ++x) {
            int colours[3] = {};
            float sum = 0;
            for (int i = 0; i < square; ++i) {
                const int column = x * shrunk + i % shrunk, row = y * shrunk + i / shrunk;
                for (int colour : {blue, green, red}) colours[colour] += small.row(row)[4 * column + colour];
                sum += likely[std::size_t(row) * small.width() + column];
            }
            for (int colour : {blue, green, red}) {
                const int mean = (colours[colour] + square / 2) / square;
                result[std::size_t(colour)].row(y)[x] = float(mean);
            }
            result[mask].row(y)[x] = std::floor(sum * (255.f / square) + 0.5f);
            result[ones].row(y)[x] = 1;
        }
    return result;
}

Fit fit(const std::array<Plane, 5>& planes) {
    const Plane empty(planes[0].width, planes[0].height);
    Fit result{empty, empty, empty, empty};
    std::vector<Sums> sums;
    for (const auto& [one, other] : {std::pair{blue, ones},
                                     {green, ones},
                                     {red, ones},
                                     {mask, ones},
                                     {blue, blue},
                                     {blue, green},
                                     {blue, red},
                                     {green, green},
                                     {green, red},
                                     {red, red},
                                     {blue, mask},
                                     {green, mask},
                                     {red, mask}})
        sums.emplace_back(planes[one], planes[other]);
    std::vector rows(sums.size(), std::vector<float>(std::size_t(empty.width)));
    for (int y = 0; y < empty.height; ++y) {
        for (std::size_t k = 0; k < sums.size(); ++k) sums[k].next(rows[k].data());
        fitRow(rows, std::size_t(empty.width), result[0].row(y), result[1].row(y), result[2].row(y),
               result[3].row(y));
    }
    return result;
}

/// Averaged over the neighbourhoods, the four numbers of a place side by side.
std::vector<float> averaged(const Fit& fit, const Plane& one) {
    const int width = fit[0].width;
    std::vector<float> result(std::size_t(width) * fit[0].height * 4);
    std::vector<float> row(static_cast<std::size_t>(width));
    for (std::size_t k = 0; k < 4; ++k) {
        Sums sums(fit[k], one);
        for (int y = 0; y < fit[0].height; ++y) {
            sums.next(row.data());
            float* to = result.data() + std::size_t(y) * width * 4 + k;
            for (int x = 0; x < width; ++x)
                to[std::size_t(x) * 4] = row[std::size_t(x)] * (1.f / neighbours / 255);
        }
    }
    return result;
}

}

Bitmap MaskRefinement::refined(const Bitmap& picture, const Bitmap& small, std::span<const float> likely) {
    const auto guides = planes(small, likely);
    const auto factors = averaged(fit(guides), guides[ones]);
    const int width = guides[ones].width, height = guides[ones].height;
    const std::size_t rowFloats = std::size_t(width) * 4;
    const auto columns = BilinearResize::places(width, picture.width(), 4);
    const auto rows = BilinearResize::places(height, picture.height(), rowFloats);

    Bitmap result = Bitmap::toBeFilled(picture.width(), picture.height());
    std::vector<float> narrow(rowFloats), wide(std::size_t(picture.width()) * 4);
    for (int y = 0; y < picture.height(); ++y) {
        const BilinearResize::SourcePair& at = rows[std::size_t(y)];
        NetworkKernels::between(factors.data() + at.before, factors.data() + at.after, at.part, rowFloats,
                                narrow.data());
        NetworkKernels::betweenPixels(narrow.data(), columns.data(), picture.width(), 4, wide.data());
        MaskKernels::maskRow(wide.data(), picture.row(y), picture.width(), kept, result.row(y));
    }
    return result;
}

double MaskRefinement::share(const Bitmap& mask) {
    std::int64_t sum = 0;
    for (int y = 0; y < mask.height(); ++y)
        for (int x = 0; x < mask.width(); ++x) sum += mask.row(y)[4 * x + 3];
    return double(sum) / 255 / mask.width() / mask.height();
}

}
