#include "platform/image/filters/ColourMatrix.h"

#include "platform/image/kernels/Kernels.h"

#include <algorithm>
#include <cmath>

namespace murbo::Filters {
namespace {

using Row = std::array<double, 4>;

/// Shares of light in a colour (ITU-R BT.709).
constexpr Row luma{0.2126, 0.7152, 0.0722, 0};
/// Film sees more of red than the eye does: skin is smooth and fair, skies are dark.
constexpr Row film{0.34, 0.55, 0.11, 0};

Row mixed(const Row& one, const Row& other, double share) {
    Row row;
    for (int at = 0; at < 4; ++at) row[at] = one[at] + (other[at] - one[at]) * share;
    return row;
}

Row times(const Row& row, double factor) {
    return mixed({}, row, factor);
}

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

bool allFinite(const ColourMatrix& matrix) {
    double sum = matrix.contrast + matrix.lift[0] + matrix.lift[1] + matrix.lift[2];
    for (const auto& row : matrix.rows) sum += row[0] + row[1] + row[2] + row[3];
    return std::isfinite(sum);
}

}

ColourMatrix ColourMatrix::saturated(double factor) {
    ColourMatrix matrix;
    for (auto& row : matrix.rows) row = mixed(luma, row, factor);
    return matrix;
}

ColourMatrix ColourMatrix::brightened(double by) {
    ColourMatrix matrix;
    // Half of what darkens is shade on all, so that white too recedes from what stands on it.
    const double lift = by < 0 ? by / 2 : by;
    for (auto& row : matrix.rows) row = times(row, 1 + std::min(by, 0.0));
    matrix.lift = {lift, lift, lift};
    return matrix;
}

ColourMatrix ColourMatrix::inverted() {
    return {{{{-1, 0, 0, 1}, {0, -1, 0, 1}, {0, 0, -1, 1}}}};
}

ColourMatrix ColourMatrix::mono() {
    return {{film, film, film}, {}, 0.16};
}

ColourMatrix ColourMatrix::sepia(double amount) {
    ColourMatrix matrix;
    const double tones[3][2] = {
        {1, 0.1}, {0.95, 0.01}, {0.82, -0.08}}; // white's colour, and the middle's lift
    // Own colours show through quickly: a little of them is a tint already.
    const double share = 1 - (1 - amount) * (1 - amount);
    matrix.contrast = 0.1 * share;
    for (int at = 0; at < 3; ++at) {
        matrix.rows[at] = mixed(matrix.rows[at], times(film, tones[at][0]), share);
        matrix.lift[at] = tones[at][1] * share;
    }
    return matrix;
}

ColourMatrix ColourMatrix::tinted(Colour colour) {
    return {{times(luma, colour.red / 255.0), times(luma, colour.green / 255.0),
             times(luma, colour.blue / 255.0)}};
}

std::optional<ColourMatrix> ColourMatrix::clamped(const Rect&) const {
    if (!allFinite(*this)) return std::nullopt;
    ColourMatrix matrix = *this;
    for (auto& row : matrix.rows) {
        for (auto& share : row) share = std::clamp(share, -7.999, 7.999);
    }
    for (auto& each : matrix.lift) each = std::clamp(each, -0.25, 0.25);
    matrix.contrast = std::clamp(matrix.contrast, -0.25, 0.25);
    return matrix;
}

ChangeRow ColourMatrix::row(const Rect&, const PixelRect&) const {
    return [sums = sumsOf(*this)](int, int, int count, std::uint8_t* pixels) {
        Kernels::sumColours(sums, count, pixels);
    };
}

}
