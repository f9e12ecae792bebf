#include "platform/image/filters/ColourCube.h"

#include "platform/image/kernels/Kernels.h"

#include <algorithm>

namespace murbo::Filters {
namespace {

constexpr int maxSide = 64;

/// A level of 0 to 255; no number is 0.
std::uint32_t level(float value) {
    return value > 0 ? std::uint32_t(std::min(value, 1.0f) * 255 + 0.5f) : 0;
}

std::shared_ptr<const std::vector<std::uint32_t>> packedOf(const ColourCube& cube) {
    const std::size_t entries = cube.values->size() / 4;
    auto table =
        std::make_shared<std::vector<std::uint32_t>>(entries + cube.side * cube.side + cube.side + 1);
    const float* value = cube.values->data();
    for (std::size_t at = 0; at < entries; ++at, value += 4)
        (*table)[at] = level(value[2]) | level(value[1]) << 8 | level(value[0]) << 16 | level(value[3]) << 24;
    return table;
}

}

std::optional<ColourCube> ColourCube::clamped(const Rect&) const {
    if (side < 2 || side > maxSide || !values) return std::nullopt;
    const auto entries = std::size_t(side) * side * side;
    if (values->size() != entries * 4) return std::nullopt;
    return ColourCube{side, values, packedOf(*this)};
}

ChangeRow ColourCube::row(const Rect&, const PixelRect&) const {
    return [steps = side, table = packed](int, int, int count, std::uint8_t* pixels) {
        Kernels::lookUpColours({steps, table->data()}, count, pixels);
    };
}

}
