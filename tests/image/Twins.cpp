#include "tests/image/Twins.h"

namespace murbo::Twins {
namespace {

/// A product in 1/2^15, rounded.
int part(int value, int share) {
    return (value * share + 0x4000) >> 15;
}

/// A product in 1/255, rounded.
int share(int value, int alpha) {
    return (value * alpha + 127) / 255;
}

std::uint8_t byte(int value) {
    return std::uint8_t(std::clamp(value, 0, 255));
}

int level(const std::uint8_t* row, int at, SampleDepth depth) {
    if (depth.bytes == 1) return row[at] << 7;
    return std::int16_t(((row[2 * at] | row[2 * at + 1] << 8) << depth.left) >> depth.right);
}

struct Light {
    int red, green, blue;
};

Light light(int y, int u, int v, const YCbCrMatrix& matrix) {
    const int luma = part(y, matrix.luma) + matrix.bias;
    return {luma + part(v - 16384, matrix.redV),
            luma + part(u - 16384, matrix.greenU) + part(v - 16384, matrix.greenV),
            luma + part(u - 16384, matrix.blueU)};
}

void store(int red, int green, int blue, std::uint8_t* out) {
    const std::uint8_t pixel[] = {byte(blue), byte(green), byte(red), 255};
    std::copy(pixel, pixel + 4, out);
}

/// The tetrahedron's corners: from the cell's darkest one along the axis of the longest fraction first.
void fromCube(const Light& light, const std::uint32_t* cube, std::uint8_t* out) {
    const int values[] = {std::clamp(light.red, 0, 8191), std::clamp(light.green, 0, 8191),
                          std::clamp(light.blue, 0, 8191)};
    constexpr int strides[] = {cubeSide * cubeSide, cubeSide, 1};
    int order[] = {0, 1, 2};
    std::sort(order, order + 3, [&](int a, int b) { return (values[a] & 255) > (values[b] & 255); });
    int at = (values[0] >> 8) * strides[0] + (values[1] >> 8) * strides[1] + (values[2] >> 8);
    int before = 256;
    int sums[3] = {512, 512, 512};
    for (int corner = 0; corner < 4; ++corner) {
        const int fraction = corner < 3 ? values[order[corner]] & 255 : 0;
        for (int channel = 0; channel < 3; ++channel)
            sums[channel] += int(cube[at] >> (10 * channel) & 1023) * (before - fraction);
        if (corner < 3) at += strides[order[corner]];
        before = fraction;
    }
    store(sums[2] >> 10, sums[1] >> 10, sums[0] >> 10, out);
}

}

void blendRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, SampleDepth depth,
               int count, std::int16_t* out) {
    for (int at = 0; at < count; ++at) {
        const int first = level(rows[0], at, depth);
        int sum = first;
        for (int tap = 1; tap < taps; ++tap) sum += part(level(rows[tap], at, depth) - first, weights[tap]);
        out[at] = std::int16_t(sum);
    }
}

void resampleRow(const Columns& columns, int from, int to, const std::int16_t* in, std::int16_t* out) {
    const auto& taps = columns.taps;
    for (int at = from * columns.values; at < to * columns.values; ++at) {
        const auto& output = taps.outputs[at / columns.values - taps.from];
        const auto sample = [&](int tap) {
            return in[(output.first - taps.low + tap) * columns.values + at % columns.values];
        };
        const auto weight = [&](int tap) { return taps.weights[output.weights + tap]; };
        int sum = 0;
        int differences = sample(0);
        for (int tap = 0; tap < output.count; ++tap) {
            sum += sample(tap) * weight(tap);
            if (tap > 0) differences += part(sample(tap) - sample(0), weight(tap));
        }
        *out++ = std::int16_t(taps.sum == Taps::Sum::differences ? differences : (sum + (1 << 13)) >> 14);
    }
}

void packPixels(const std::int16_t* in, int pixels, bool opaque, std::uint8_t* out) {
    for (int at = 0; at < pixels * 4; ++at) out[at] = opaque && at % 4 == 3 ? 255 : byte((in[at] + 64) >> 7);
}

void colourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const YCbCrMatrix& matrix, std::uint8_t* out) {
    for (int at = 0; at < count; ++at) {
        const Light found = light(y[at], u[at], v[at], matrix);
        store(found.red >> 5, found.green >> 5, found.blue >> 5, out + at * 4);
    }
}

void colourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const YCbCrMatrix& matrix, const std::uint32_t* cube, std::uint8_t* out) {
    for (int at = 0; at < count; ++at) fromCube(light(y[at], u[at], v[at], matrix), cube, out + at * 4);
}

void multiplyAlpha(const std::int16_t* alpha, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count; ++at, pixels += 4) {
        pixels[3] = byte((alpha[at] + 64) >> 7);
        for (int channel = 0; channel < 3; ++channel)
            pixels[channel] = byte(share(pixels[channel], pixels[3]));
    }
}

void over(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count * 4; ++at)
        pixels[at] = byte(above[at] + share(pixels[at], 255 - above[at | 3]));
}

void over(std::uint32_t above, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count; ++at)
        over(reinterpret_cast<const std::uint8_t*>(&above), 1, pixels + at * 4);
}

void fade(int opacity, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count * 4; ++at) pixels[at] = byte(share(pixels[at], opacity));
}

void meanOfThree(const std::uint8_t* ones, const std::uint8_t* others, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count * 4; ++at)
        pixels[at] = byte(int(std::lround((ones[at] + others[at] + pixels[at]) / 3.0)));
}

void affineRow(const Texture& texture, const Line& u, const Line& v, int from, int to, std::uint8_t* out) {
    const auto position = [](const Line& line, int at, int length) {
        // In 1/2^15 from a mark at every 64th pixel on.
        const std::int64_t mark =
            std::clamp(line.at(at & ~63) >> 9, std::int64_t(-16384) << 15, std::int64_t(length + 8192) << 15);
        return int(mark + (at & 63) * (line.step >> 9));
    };
    for (int at = from; at < to; ++at) {
        const int x = position(u, at, texture.width);
        const int y = position(v, at, texture.height);
        for (int channel = 0; channel < 4; ++channel) {
            const auto level = [&](int right, int down) {
                const int column = std::clamp((x >> 15) + right, 0, texture.width - 1);
                const int row = std::clamp((y >> 15) + down, 0, texture.height - 1);
                return texture.pixels[row * texture.stride + column * 4 + channel] << 7;
            };
            const auto between = [](int one, int other, int place) {
                return one + part(other - one, place & 32767);
            };
            const int above = between(level(0, 0), level(1, 0), x);
            const int below = between(level(0, 1), level(1, 1), x);
            *out++ = byte((between(above, below, y) + 64) >> 7);
        }
    }
}

void smearRow(const std::uint8_t* in, int count, int reach, std::uint8_t* out) {
    const int whole = (reach - 32) / 64;
    const unsigned scale = (1u << 24) / unsigned(2 * reach);
    for (int at = 0; at < count * 4; ++at) {
        unsigned sum = 0;
        for (int step = -whole - 1; step <= whole + 1; ++step) {
            const unsigned weight = std::abs(step) <= whole ? 64 : (reach - 32) % 64;
            sum += weight * in[std::clamp(at / 4 + step, 0, count - 1) * 4 + at % 4];
        }
        out[at] = std::uint8_t((sum * scale + (1u << 23)) >> 24);
    }
}

void transpose(const std::uint8_t* in, std::ptrdiff_t inStride, int width, int height, std::uint8_t* out,
               std::ptrdiff_t outStride) {
    for (int y = 0; y < height; ++y) {
        for (int at = 0; at < width * 4; ++at)
            out[at / 4 * outStride + y * 4 + at % 4] = in[y * inStride + at];
    }
}

}
