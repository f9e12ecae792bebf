#pragma once

#include <array>
#include <cstdint>

namespace murbo::Kernels {

/// What a premultiplied level times makes a straight one, by alpha, in 1/2^16.
inline constexpr std::array<std::uint32_t, 256> straightShares = [] {
    std::array<std::uint32_t, 256> shares{};
    for (std::uint32_t alpha = 1; alpha < 256; ++alpha) shares[alpha] = ((255u << 16) + alpha / 2) / alpha;
    return shares;
}();

}
