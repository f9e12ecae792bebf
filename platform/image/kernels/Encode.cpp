#include "platform/image/kernels/Kernels.h"

#include <algorithm>

namespace murbo::Kernels {
namespace {

/// ITU-R BT.709 to limited range in 1/2^15, each sum exact: white is 235, and a grey has no colour.
struct Weights {
    int blue, green, red;
};
constexpr Weights lumaWeights{2032, 20127, 5983};
constexpr Weights cbWeights{14392, -11094, -3298};
constexpr Weights crWeights{-1320, -13072, 14392};

int weighed(const int (&pixel)[3], const Weights& weights) {
    return pixel[0] * weights.blue + pixel[1] * weights.green + pixel[2] * weights.red;
}

std::uint8_t chroma(const int (&sums)[3], const Weights& weights) {
    return std::uint8_t((weighed(sums, weights) + (128 << 18) + (1 << 17)) >> 18);
}

}

void lumaRow(const std::uint8_t* pixels, int count, std::uint8_t* y) {
    for (int at = 0; at < count; ++at) {
        const int pixel[] = {pixels[at * 4], pixels[at * 4 + 1], pixels[at * 4 + 2]};
        y[at] = std::uint8_t((weighed(pixel, lumaWeights) + (16 << 15) + (1 << 14)) >> 15);
    }
}

/// The sample stands on the left pixel of its pair, so it weighs that one double and its neighbours singly.
void chromaRow(const std::uint8_t* upper, const std::uint8_t* lower, int count, std::uint8_t* cb,
               std::uint8_t* cr) {
    for (int at = 0; at < count / 2; ++at) {
        const int before = std::max(2 * at - 1, 0) * 4;
        int sums[3];
        for (int channel = 0; channel < 3; ++channel) {
            const int here = 8 * at + channel;
            sums[channel] = upper[before + channel] + 2 * upper[here] + upper[here + 4] +
                            lower[before + channel] + 2 * lower[here] + lower[here + 4];
        }
        cb[at] = chroma(sums, cbWeights);
        cr[at] = chroma(sums, crWeights);
    }
}

}
