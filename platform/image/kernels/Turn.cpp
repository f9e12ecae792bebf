#include "platform/image/kernels/Kernels.h"

#include <algorithm>

namespace murbo::Kernels {
namespace {

/// Positions run in 32 bits from one mark to the next, each mark worked out anew: no error adds up.
constexpr int marks = 64;
constexpr int textureBits = 15;

/// A position in 1/2^15, held near enough to the texture to be counted in 32 bits.
int held(std::int64_t position, int length) {
    const std::int64_t beyond = std::int64_t(16384) << Line::bits;
    const std::int64_t farthest = (std::int64_t(length) << Line::bits) + (std::int64_t(8192) << Line::bits);
    return int(std::clamp(position, -beyond, farthest) >> (Line::bits - textureBits));
}

int times(int a, int b) {
    return (a * b + 0x4000) >> 15;
}

int between(int one, int other, int fraction) {
    return one + times(other - one, fraction);
}

void look(const Texture& texture, int u, int v, std::uint8_t* out) {
    const int left = std::clamp(u >> textureBits, 0, texture.width - 1);
    const int right = std::clamp((u >> textureBits) + 1, 0, texture.width - 1);
    const auto* upper = texture.pixels + std::clamp(v >> textureBits, 0, texture.height - 1) * texture.stride;
    const auto* lower =
        texture.pixels + std::clamp((v >> textureBits) + 1, 0, texture.height - 1) * texture.stride;
    const int across = u & 32767;
    const int down = v & 32767;
    for (int channel = 0; channel < 4; ++channel) {
        const int above = between(upper[left * 4 + channel] << 7, upper[right * 4 + channel] << 7, across);
        const int below = between(lower[left * 4 + channel] << 7, lower[right * 4 + channel] << 7, across);
        out[channel] = std::uint8_t((between(above, below, down) + 64) >> 7);
    }
}

}

void turnRow(const Texture& texture, const Line& u, const Line& v, int from, int to, std::uint8_t* out) {
    const int stepU = int(u.step >> (Line::bits - textureBits));
    const int stepV = int(v.step >> (Line::bits - textureBits));
    for (int at = from; at < to; ++at, out += 4) {
        const int mark = at & ~(marks - 1);
        const int along = at - mark;
        look(texture, held(u.at(mark), texture.width) + along * stepU,
             held(v.at(mark), texture.height) + along * stepV, out);
    }
}

}
