#include "platform/vision/MaskRefinement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace murbo {

// A guided filter (He, Sun, Tang, "Guided Image Filtering", 2013): near each place the mask is taken to be
// the picture's three colours times a factor each, plus a constant. Those that fit best are found at the
// network's size, averaged, and applied to the picture's own pixels. Where the mask is all 0 or all 1 it
// stays so; where it changes, it changes with the colours. With brightness alone, skin before a wall as
// bright would get a halo.

namespace {

constexpr int radius = 4; ///< of a neighbourhood, in pixels of the network's input
constexpr int across = 2 * radius + 1;
constexpr float neighbours = across * across;
constexpr float calm = 1e-4f * 255 * 255; ///< colours that vary by less than this, squared, move nothing
// Below, the network's haze is cut off; above, its doubts inside a body.
constexpr float nothingBelow = 0.1f;
constexpr float allAbove = 0.9f;

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
        // Nine by doubling: two, four, eight, and one more.
        static_assert(across == 9);
        const float* __restrict c = columns.data();
        float* __restrict s = spare.data();
        for (std::size_t x = 0; x + 1 < wide; ++x) s[x] = c[x] + c[x + 1];
        for (std::size_t x = 0; x + 3 < wide; ++x) s[x] = s[x] + s[x + 2];
        for (std::size_t x = 0; x + 8 < wide; ++x) sums[x] = (s[x] + s[x + 4]) + c[x + 8];
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

/// The factors that fit one row best: least squares, its three equations solved by cofactors.
void fitRow(const std::vector<std::vector<float>>& rows, std::size_t width, float* __restrict toBlue,
            float* __restrict toGreen, float* __restrict toRed, float* __restrict constant) {
    const float* __restrict sum[13];
    for (int k = 0; k < 13; ++k) sum[k] = rows[k].data();
    constexpr float each = 1 / neighbours;
    for (std::size_t x = 0; x < width; ++x) {
        const float b = sum[0][x] * each, g = sum[1][x] * each, r = sum[2][x] * each, m = sum[3][x] * each;
        const float bb = sum[4][x] * each - b * b + calm;
        const float bg = sum[5][x] * each - b * g;
        const float br = sum[6][x] * each - b * r;
        const float gg = sum[7][x] * each - g * g + calm;
        const float gr = sum[8][x] * each - g * r;
        const float rr = sum[9][x] * each - r * r + calm;
        const float bm = sum[10][x] * each - b * m;
        const float gm = sum[11][x] * each - g * m;
        const float rm = sum[12][x] * each - r * m;
        const float c00 = gg * rr - gr * gr, c01 = br * gr - bg * rr, c02 = bg * gr - br * gg;
        const float c11 = bb * rr - br * br, c12 = bg * br - bb * gr, c22 = bb * gg - bg * bg;
        const float scale = 1 / (bb * c00 + bg * c01 + br * c02);
        toBlue[x] = (c00 * bm + c01 * gm + c02 * rm) * scale;
        toGreen[x] = (c01 * bm + c11 * gm + c12 * rm) * scale;
        toRed[x] = (c02 * bm + c12 * gm + c22 * rm) * scale;
        constant[x] = m - toBlue[x] * b - toGreen[x] * g - toRed[x] * r;
    }
}

std::array<Plane, 5> planes(const Bitmap& small, std::span<const float> likely) {
    const Plane empty(small.width(), small.height());
    std::array<Plane, 5> result{empty, empty, empty, empty, empty};
    for (int y = 0; y < small.height(); ++y) {
        const std::uint8_t* pixels = small.row(y);
        for (int x = 0; x < small.width(); ++x, pixels += 4) {
            for (int colour : {blue, green, red}) result[std::size_t(colour)].row(y)[x] = pixels[colour];
            result[mask].row(y)[x] = std::floor(likely[std::size_t(y) * small.width() + x] * 255 + 0.5f);
            result[ones].row(y)[x] = 1;
        }
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
                to[std::size_t(x) * 4] = row[std::size_t(x)] * (1 / neighbours / 255);
        }
    }
    return result;
}

/// Where a pixel lies between two of the small picture.
struct Place {
    int before, after;
    float part;
};
Place place(int i, int from, int to) {
    const float exact = std::max((float(i) + 0.5f) * (float(from) / float(to)) - 0.5f, 0.f);
    const int before = std::min(int(exact), from - 1);
    return {before, std::min(before + 1, from - 1), exact - float(before)};
}

std::uint8_t curved(float value) {
    const float t = std::clamp((value - nothingBelow) * (1 / (allAbove - nothingBelow)), 0.f, 1.f);
    return std::uint8_t(t * t * (3 - 2 * t) * 255 + 0.5f);
}

}

Bitmap MaskRefinement::refined(const Bitmap& picture, const Bitmap& small, std::span<const float> likely) {
    const auto guides = planes(small, likely);
    const auto factors = averaged(fit(guides), guides[ones]);
    std::vector<Place> columns;
    for (int x = 0; x < picture.width(); ++x) columns.push_back(place(x, small.width(), picture.width()));

    Bitmap result = Bitmap::toBeFilled(picture.width(), picture.height());
    const std::size_t rowFloats = std::size_t(small.width()) * 4;
    std::vector<float> row(rowFloats);
    for (int y = 0; y < picture.height(); ++y) {
        const Place rows = place(y, small.height(), picture.height());
        const float* above = factors.data() + std::size_t(rows.before) * rowFloats;
        const float* below = factors.data() + std::size_t(rows.after) * rowFloats;
        for (std::size_t i = 0; i < rowFloats; ++i) row[i] = above[i] + (below[i] - above[i]) * rows.part;
        const std::uint8_t* from = picture.row(y);
        std::uint8_t* to = result.row(y);
        for (const Place& column : columns) {
            const float* left = row.data() + std::ptrdiff_t(column.before) * 4;
            const float* right = row.data() + std::ptrdiff_t(column.after) * 4;
            float found[4];
            for (int k = 0; k < 4; ++k) found[k] = left[k] + (right[k] - left[k]) * column.part;
            std::fill_n(to, 4,
                        curved(found[0] * from[0] + found[1] * from[1] + found[2] * from[2] + found[3]));
            from += 4;
            to += 4;
        }
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
