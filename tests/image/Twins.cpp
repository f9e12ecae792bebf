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

int level(const std::uint8_t* row, int at, Depth depth) {
    if (depth.bytes == 1) return row[at] << 7;
    return std::int16_t(((row[2 * at] | row[2 * at + 1] << 8) << depth.left) >> depth.right);
}

struct Light {
    int red, green, blue;
};

Light light(int y, int u, int v, const Matrix& matrix) {
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

int chroma(const int (&sums)[3], int blue, int green, int red) {
    return (sums[0] * blue + sums[1] * green + sums[2] * red + (128 << 18) + (1 << 17)) >> 18;
}

}

void blendRows(const std::uint8_t* const* rows, const std::int16_t* weights, int taps, Depth depth, int count,
               std::int16_t* out) {
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
               const Matrix& matrix, std::uint8_t* out) {
    for (int at = 0; at < count; ++at) {
        const Light found = light(y[at], u[at], v[at], matrix);
        store(found.red >> 5, found.green >> 5, found.blue >> 5, out + at * 4);
    }
}

void colourRow(const std::int16_t* y, const std::int16_t* u, const std::int16_t* v, int count,
               const Matrix& matrix, const std::uint32_t* cube, std::uint8_t* out) {
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

void mask(const std::uint8_t* masks, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count * 4; ++at) pixels[at] = byte(share(pixels[at], masks[at | 3]));
}

namespace {

/// co = cs·(1 − αb) + cb·(1 − αs) + αs·αb·B(Cb, Cs), where `blend` gives the last term from premultiplied
/// colours and alphas, all in 1/255².
template <typename Blend>
void mixed(const std::uint8_t* above, int count, std::uint8_t* pixels, Blend blend) {
    for (int at = 0; at < count; ++at, above += 4, pixels += 4) {
        const int as = above[3];
        const int ab = pixels[3];
        for (int channel = 0; channel < 4; ++channel) {
            const int cs = std::min<int>(above[channel], as);
            const int cb = std::min<int>(pixels[channel], ab);
            pixels[channel] = byte((cs * (255 - ab) + cb * (255 - as) + blend(cs, cb, as, ab) + 127) / 255);
        }
    }
}

}

void multiply(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    mixed(above, count, pixels, [](int cs, int cb, int, int) { return cs * cb; });
}

void screen(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    mixed(above, count, pixels, [](int cs, int cb, int as, int ab) { return as * cb + ab * cs - cs * cb; });
}

void overlay(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    mixed(above, count, pixels, [](int cs, int cb, int as, int ab) {
        return 2 * cb <= ab ? 2 * cs * cb : as * ab - 2 * (ab - cb) * (as - cs);
    });
}

void softLight(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count; ++at, above += 4, pixels += 4) {
        const int as = above[3];
        const int ab = pixels[3];
        const int alpha = (255 * (as + ab) - as * ab + 127) / 255;
        for (int channel = 0; channel < 3; ++channel) {
            const int cs = std::min<int>(above[channel], as);
            const int cb = std::min<int>(pixels[channel], ab);
            const double x = ab == 0 ? 0 : (cb * 255 + ab / 2) / ab / 255.0;
            const double lit = x <= 0.25 ? ((16 * x - 12) * x + 4) * x : std::sqrt(x);
            const double pull = 2 * cs > as ? lit - x : x * (1 - x);
            const int pulled =
                int(std::floor(double((2 * cs - as) * ab) * double(std::lround(pull * 65536)) / 65536 + 0.5));
            const int sum = std::max(cs * (255 - ab) + cb * 255 + pulled, 0);
            pixels[channel] = byte(std::min((sum + 127) / 255, alpha));
        }
        pixels[3] = byte(alpha);
    }
}

void add(const std::uint8_t* above, int count, std::uint8_t* pixels) {
    for (int at = 0; at < count * 4; ++at) pixels[at] = byte(pixels[at] + above[at]);
}

void turnRow(const Texture& texture, const Line& u, const Line& v, int from, int to, std::uint8_t* out) {
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

void lumaRow(const std::uint8_t* pixels, int count, std::uint8_t* y) {
    for (int at = 0; at < count; ++at, pixels += 4)
        y[at] =
            byte((pixels[0] * 2032 + pixels[1] * 20127 + pixels[2] * 5983 + (16 << 15) + (1 << 14)) >> 15);
}

void chromaRow(const std::uint8_t* upper, const std::uint8_t* lower, int count, std::uint8_t* cb,
               std::uint8_t* cr) {
    for (int pair = 0; pair < count / 2; ++pair) {
        int sums[3] = {};
        for (const auto* row : {upper, lower}) {
            for (const int x : {std::max(2 * pair - 1, 0), 2 * pair, 2 * pair, 2 * pair + 1}) {
                for (int channel = 0; channel < 3; ++channel) sums[channel] += row[x * 4 + channel];
            }
        }
        cb[pair] = byte(chroma(sums, 14392, -11094, -3298));
        cr[pair] = byte(chroma(sums, -1320, -13072, 14392));
    }
}

}
