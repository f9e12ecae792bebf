#include "platform/image/draw/GradientSampler.h"

#include "platform/image/kernels/Kernels.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace murbo {
namespace {

/// So many that no level is off by a tenth.
constexpr int slantedSteps = 4096;

/// Premultiplied colours are what is mixed: a clear end has no say in the other's hue.
std::array<double, 4> channels(Colour colour) {
    const double alpha = colour.alpha / 255.0;
    return {colour.blue * alpha, colour.green * alpha, colour.red * alpha, double(colour.alpha)};
}

}

GradientSampler::GradientSampler(const ImageNode::Gradient& gradient, const Transform& place)
    : first(channels(gradient.first)), last(channels(gradient.last)) {
    const Transform back = place.inverse();
    const double length = gradient.to - gradient.from;
    across = back.b / length;
    down = back.d / length;
    start = (back.ty - gradient.from) / length + 0.5 * (across + down);
    if (across == 0) return;
    steps.resize(slantedSteps + 1);
    for (int at = 0; at <= slantedSteps; ++at) steps[at] = pixel(double(at) / slantedSteps);
}

std::uint32_t GradientSampler::pixel(double share) const {
    const double part = std::clamp(share, 0.0, 1.0);
    std::uint32_t result = 0;
    for (int channel = 0; channel < 4; ++channel) {
        const double value = first[channel] + (last[channel] - first[channel]) * part;
        result |= std::uint32_t(std::lround(value)) << (8 * channel);
    }
    return result;
}

void GradientSampler::fillSlanted(int y, const Tile& tile) const {
    const double before = start + y * down;
    auto* out = tile.at(tile.area.left, y);
    for (int x = tile.area.left; x < tile.area.right; ++x, out += 4) {
        const double share = std::clamp(before + x * across, 0.0, 1.0);
        std::memcpy(out, &steps[int(share * slantedSteps + 0.5)], 4);
    }
}

void GradientSampler::fill(const Tile& tile) const {
    for (int y = tile.area.top; y < tile.area.bottom; ++y) {
        if (!steps.empty())
            fillSlanted(y, tile);
        else
            Kernels::fill(pixel(start + y * down), tile.area.width(), tile.at(tile.area.left, y));
    }
}

}
