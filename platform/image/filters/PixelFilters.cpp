#include "platform/image/filters/FilterDrawings.h"
#include "platform/image/filters/Filters.h"
#include "platform/image/kernels/FilterKernels.h"

#include <algorithm>
#include <cmath>

namespace murbo {
namespace {

std::int16_t fixed(double value, double one) {
    return std::int16_t(std::clamp(std::lround(value * one), -32767l, 32767l));
}

Kernels::ColourSums sumsOf(const ColourMatrix& matrix) {
    Kernels::ColourSums sums{};
    for (int out = 0; out < 3; ++out) {
        const auto& row = matrix.rows[2 - out];
        for (int in = 0; in < 3; ++in) sums.shares[out][in] = fixed(row[2 - in], 4096);
        sums.shares[out][3] = fixed(row[3], 4096);
        sums.lift[out] = fixed(matrix.lift[2 - out], 32768);
        sums.bent |= sums.lift[out] != 0;
    }
    sums.contrast = fixed(matrix.contrast, 32768);
    sums.bent |= sums.contrast != 0;
    return sums;
}

/// A level of 0 to 255; no number is 0.
std::uint32_t level(float value) {
    return value > 0 ? std::uint32_t(std::min(value, 1.0f) * 255 + 0.5f) : 0;
}

/// Steps of a vignette's table from the middle to the corners.
constexpr int fall = 4096;

/// How much light is left by the distance from the middle squared, 1 being the corners'.
std::shared_ptr<const std::vector<std::uint32_t>> lightOf(const Vignetted& filter) {
    auto light = std::make_shared<std::vector<std::uint32_t>>(fall + 1);
    for (int at = 0; at <= fall; ++at) {
        const double distance = std::sqrt(double(at) / fall);
        const double beyond = std::max(distance / filter.radius - 0.15, 0.0);
        const double dark = 1 / (1 + 6 * filter.intensity * beyond * beyond);
        (*light)[at] = std::uint32_t(std::lround(dark * 32767));
    }
    return light;
}

/// A pixel's share of the squared distance along one axis.
int away(double pixel, double middle, double half) {
    const double share = (pixel + 0.5 - middle) / half;
    return int(std::lround(std::min(share * share, 1.0) * (fall / 2)));
}

}

std::shared_ptr<const std::vector<std::uint32_t>> Filters::packed(const Filter& filter) {
    const auto* cube = std::get_if<ColourCube>(&filter);
    if (!cube) return nullptr;
    const std::size_t entries = cube->values->size() / 4;
    auto table =
        std::make_shared<std::vector<std::uint32_t>>(entries + cube->side * cube->side + cube->side + 1);
    const float* value = cube->values->data();
    for (std::size_t at = 0; at < entries; ++at, value += 4)
        (*table)[at] = level(value[2]) | level(value[1]) << 8 | level(value[0]) << 16 | level(value[3]) << 24;
    return table;
}

namespace FilterDrawings {

Row row(const ColourMatrix& filter) {
    return [sums = sumsOf(filter)](int, int, int count, std::uint8_t* pixels) {
        Kernels::sumColours(sums, count, pixels);
    };
}

Row row(const Posterised& filter) {
    return [levels = filter.levels](int, int, int count, std::uint8_t* pixels) {
        Kernels::posterise(levels, count, pixels);
    };
}

Row row(const ColourCube& filter, std::shared_ptr<const std::vector<std::uint32_t>> table) {
    return [side = filter.side, table](int, int, int count, std::uint8_t* pixels) {
        Kernels::lookUpColours({side, table->data()}, count, pixels);
    };
}

Row row(const Vignetted& filter, const Rect& body, const PixelRect& bounds) {
    const Point middle = body.middle();
    auto across = std::make_shared<std::vector<std::int32_t>>();
    for (int x = bounds.left; x < bounds.right; ++x) across->push_back(away(x, middle.x, body.width / 2));
    return [=, light = lightOf(filter), left = bounds.left, half = body.height / 2](int x, int y, int count,
                                                                                    std::uint8_t* pixels) {
        Kernels::shadeRow(across->data() + (x - left), away(y, middle.y, half), light->data(), x, y, count,
                          pixels);
    };
}

}

}
