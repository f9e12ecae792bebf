#include "platform/image/kernels/Kernels.h"

#include <algorithm>

namespace murbo::Kernels {
namespace {

int times(int a, int b) {
    return (a * b + 0x4000) >> 15;
}

int level(const std::uint8_t* row, int at, Depth depth) {
    if (depth.bytes == 1) return row[at] << 7;
    const int stored = row[2 * at] | row[2 * at + 1] << 8;
    return std::int16_t((stored << depth.left) >> depth.right);
}

template <int channels>
void resample(const Taps& taps, int from, int to, const std::int16_t* in, std::int16_t* out) {
    for (int at = from; at < to; ++at) {
        const auto& output = taps.outputs[at - taps.from];
        const auto* weights = &taps.weights[output.weights];
        for (int channel = 0; channel < channels; ++channel) {
            const auto* samples = in + (output.first - taps.low) * channels + channel;
            const int base = samples[output.base * channels];
            int sum = taps.narrow ? base : 1 << 13;
            for (int tap = 0; tap < output.count; ++tap) {
                const int sample = samples[tap * channels];
                if (!taps.narrow) sum += sample * weights[tap];
                if (taps.narrow && tap != output.base) sum += times(sample - base, weights[tap]);
            }
            *out++ = std::int16_t(taps.narrow ? sum : sum >> 14);
        }
    }
}

}

void blendRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, int base, Depth depth,
               int count, std::int16_t* out) {
    for (int at = 0; at < count; ++at) {
        const int heaviest = level(rows[base], at, depth);
        int sum = heaviest;
        for (int tap = 0; tap < taps; ++tap) {
            if (tap != base) sum += times(level(rows[tap], at, depth) - heaviest, weights[tap]);
        }
        out[at] = std::int16_t(sum);
    }
}

void resampleRow(const Taps& taps, int from, int to, const std::int16_t* in, std::int16_t* out) {
    resample<1>(taps, from, to, in, out);
}

void resamplePixels(const Taps& taps, int from, int to, const std::int16_t* in, std::int16_t* out) {
    resample<4>(taps, from, to, in, out);
}

void splitPairs(const std::int16_t* in, int count, std::int16_t* first, std::int16_t* second) {
    for (int at = 0; at < count; ++at) {
        first[at] = in[2 * at];
        second[at] = in[2 * at + 1];
    }
}

void packPixels(const std::int16_t* in, int pixels, bool opaque, std::uint8_t* out) {
    for (int at = 0; at < pixels * 4; ++at) out[at] = std::uint8_t(std::clamp((in[at] + 64) >> 7, 0, 255));
    if (!opaque) return;
    for (int at = 0; at < pixels; ++at) out[at * 4 + 3] = 255;
}

}
