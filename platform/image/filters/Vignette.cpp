#include "platform/image/filters/Vignette.h"

#include "platform/image/kernels/Kernels.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace murbo::Filters {
namespace {

/// Steps of the table from the middle to the corners.
constexpr int fall = 4096;

/// How much light is left by the distance from the middle squared, 1 being the corners'.
std::shared_ptr<const std::vector<std::uint32_t>> lightOf(const Vignette& filter) {
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

std::optional<Vignette> Vignette::clamped(const Rect& body) const {
    if (!(intensity > 0) || !(radius > 0) || body.isEverything()) return std::nullopt;
    return Vignette{std::min(intensity, 16.0), std::min(radius, 64.0)};
}

ChangeRow Vignette::row(const Rect& body, const PixelRect& bounds) const {
    const Point middle = body.middle();
    auto across = std::make_shared<std::vector<std::int32_t>>();
    for (int x = bounds.left; x < bounds.right; ++x) across->push_back(away(x, middle.x, body.width / 2));
    return [=, light = lightOf(*this), left = bounds.left, half = body.height / 2](int x, int y, int count,
                                                                                   std::uint8_t* pixels) {
        Kernels::vignetteRow(across->data() + (x - left), away(y, middle.y, half), light->data(), x, y, count,
                             pixels);
    };
}

}
