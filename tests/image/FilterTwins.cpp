#include "tests/image/FilterTwins.h"

#include <algorithm>
#include <cstdlib>
#include <numeric>

namespace murbo::Twins {
namespace {

int times(int value, int share) {
    return (value * share + 127) / 255;
}

/// 15-bit factors, rounded.
int times15(int value, int share) {
    return (value * share + (1 << 14)) >> 15;
}

/// By the reciprocal of alpha, in 1/2^16.
int straight(int value, int alpha) {
    return int(std::min((value * std::int64_t(((255u << 16) + alpha / 2) / alpha) + (1 << 15)) >> 16,
                        std::int64_t(255)));
}

/// Calls `change` with three straight channels, and lays alpha back on them.
template <typename Change>
void onStraight(int count, std::uint8_t* pixels, const Change& change) {
    for (int at = 0; at < count; ++at, pixels += 4) {
        const int alpha = pixels[3];
        if (alpha == 0) continue;
        int colour[3];
        for (int channel = 0; channel < 3; ++channel) colour[channel] = straight(pixels[channel], alpha);
        change(colour);
        for (int channel = 0; channel < 3; ++channel)
            pixels[channel] = std::uint8_t(times(colour[channel], alpha));
    }
}

int sum(const ColourSums& sums, int out, const int* in, int white) {
    return sums.shares[out][0] * in[0] + sums.shares[out][1] * in[1] + sums.shares[out][2] * in[2] +
           sums.shares[out][3] * white;
}

int bright(const std::uint8_t* pixel) {
    return 18 * pixel[0] + 183 * pixel[1] + 55 * pixel[2];
}

std::uint32_t mixed(std::uint32_t value) {
    value = (value ^ value >> 16) * 0x85EBCA6B;
    value = (value ^ value >> 13) * 0xC2B2AE35;
    return value ^ value >> 16;
}

}

void sumColours(const ColourSums& sums, int count, std::uint8_t* pixels) {
    if (sums.bent)
        return onStraight(count, pixels, [&](int* colour) {
            const int in[3] = {colour[0], colour[1], colour[2]};
            for (int out = 0; out < 3; ++out) {
                const int value = std::clamp((sum(sums, out, in, 255) + 16) >> 5, 0, 255 * 128);
                const int steep = 2 * times15(sums.contrast, value - 255 * 64);
                const int bend = times15(4 * times15(value, 255 * 128 - value), sums.lift[out] + steep);
                colour[out] = (std::clamp(value + bend, 0, 255 * 128) + 64) >> 7;
            }
        });
    for (int at = 0; at < count; ++at, pixels += 4) {
        const int in[3] = {pixels[0], pixels[1], pixels[2]};
        for (int out = 0; out < 3; ++out)
            pixels[out] =
                std::uint8_t(std::clamp((sum(sums, out, in, pixels[3]) + 2048) >> 12, 0, int(pixels[3])));
    }
}

void posterise(int levels, int count, std::uint8_t* pixels) {
    const int steps = levels - 1;
    onStraight(count, pixels, [&](int* colour) {
        for (int at = 0; at < 3; ++at) {
            const int index = (colour[at] * steps + 127) / 255;
            colour[at] = (index * (255 * 256 / steps) + 255) / 256;
        }
    });
}

void lookUpColours(const ColourTable& table, int count, std::uint8_t* pixels) {
    const int strides[3] = {table.side * table.side, table.side, 1};
    for (int at = 0; at < count; ++at, pixels += 4) {
        const int alpha = pixels[3];
        if (alpha == 0) continue;
        int entry = 0;
        int fraction[3];
        for (int channel = 0; channel < 3; ++channel) {
            const int place = straight(pixels[channel], alpha) * ((table.side - 1) * 65536 / 255 + 1) >> 8;
            entry += (place >> 8) * strides[channel];
            fraction[channel] = place & 255;
        }
        int order[3] = {0, 1, 2};
        std::sort(order, order + 3, [&](int a, int b) {
            return std::pair(fraction[a], strides[a]) > std::pair(fraction[b], strides[b]);
        });
        int sums[4] = {128, 128, 128, 128};
        int left = 256;
        for (int corner = 0; corner < 4; ++corner) {
            const int next = corner < 3 ? fraction[order[corner]] : 0;
            for (int channel = 0; channel < 4; ++channel)
                sums[channel] += int(table.entries[entry] >> 8 * channel & 255) * (left - next);
            left = next;
            if (corner < 3) entry += strides[order[corner]];
        }
        for (int channel = 0; channel < 4; ++channel)
            pixels[channel] = std::uint8_t(times(sums[channel] >> 8, alpha));
    }
}

void shadeRow(const std::int32_t* across, int down, const std::uint32_t* light, int x, int y, int count,
              std::uint8_t* pixels) {
    for (int at = 0; at < count; ++at, pixels += 4) {
        const auto noise = std::uint32_t(x + at) * 3242174889u + std::uint32_t(y) * 2447445414u;
        for (int channel = 0; channel < 3; ++channel)
            pixels[channel] = std::uint8_t(
                (times15(pixels[channel] * 128, int(light[across[at] + down])) + int(noise >> 25)) >> 7);
    }
}

void keepBright(const std::uint32_t* shares, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count; ++at, pixels += 4) {
        const int share = int(shares[bright(pixels) >> 8] & 255);
        for (int channel = 0; channel < 4; ++channel)
            pixels[channel] = std::uint8_t(times(pixels[channel], share));
    }
}

void tapeRow(const TapeRow& tape, const std::uint8_t* in, int count, std::uint8_t* out) {
    for (int at = 0; at < count; ++at, in += 4, out += 4) {
        const auto* left = in - tape.whole * 4;
        const int bled = (left[2] * (256 - tape.part) + left[-2] * tape.part) >> 8;
        const std::uint32_t grain = mixed(tape.grain[at] ^ tape.seed);
        const std::uint32_t random[3] = {grain & 255, grain >> 8 & 255, grain >> 16 & 255};
        for (int channel = 0; channel < 3; ++channel) {
            const int value = channel == 2 ? std::max<int>(in[2], bled) : in[channel];
            const int noisy = value + (int(random[channel]) * tape.noise >> 8) + tape.floor;
            out[channel] = std::uint8_t((times15(std::min<int>(noisy, in[3]) * 128, tape.light) + 64) >> 7);
        }
        out[3] = in[3];
    }
}

void evenOutRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, Depth depth,
                 int tolerance, int count, std::int16_t* out) {
    const auto value = [&](int tap, int at) {
        return depth.bytes == 1 ? rows[tap][at] * 128
                                : int(reinterpret_cast<const std::int16_t*>(rows[tap])[at]);
    };
    for (int at = 0; at < count; ++at) {
        int result = value(0, at);
        for (int tap = 1; tap < taps; ++tap) {
            const int difference = value(tap, at) - value(0, at);
            const int near = std::max((32767 >> tolerance) - std::abs(difference), 0);
            result += times15(difference, times15(near << tolerance, weights[tap]));
        }
        out[at] = std::int16_t(result);
    }
}

void brightnessRow(const std::uint8_t* pixels, int count, std::int16_t* out) {
    for (int at = 0; at < count; ++at) out[at] = std::int16_t(bright(pixels + at * 4) >> 1);
}

void inkRow(const std::int16_t* fine, const std::int16_t* coarse, int steep, int count,
            std::uint8_t* pixels) {
    for (int at = 0; at < count; ++at)
        pixels[at * 4 + 3] = std::uint8_t(std::clamp(128 + ((coarse[at] - fine[at]) * steep >> 11), 0, 255));
}

void printRow(const PrintRow& print, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count; ++at, pixels += 4) {
        const int own = bright(pixels) >> 8;
        const int dots = times15(print.screen[at], print.down);
        const int dotted = std::clamp(own + (dots * (own * (255 - own) >> 7) >> 18), 0, 255);
        const int paper = 255 - std::clamp((pixels[3] - print.least) * print.steep, 0, 255);
        for (int channel = 0; channel < 3; ++channel) {
            const int colour = (pixels[channel] - own) * print.colour >> 4;
            pixels[channel] =
                std::uint8_t(times(std::clamp(int(print.tones[dotted]) + colour, 0, 255), paper));
        }
        pixels[3] = 255;
    }
}

void takeAlpha(const std::uint8_t* others, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count * 4; ++at) {
        const int alpha = others[at | 3];
        pixels[at] = std::uint8_t(at % 4 == 3 ? alpha : times(pixels[at], alpha));
    }
}

}
