#include "platform/image/kernels/Kernels.h"

#include <algorithm>

namespace murbo::Kernels {
namespace {

int times(int a, int b) {
    return (a * b + 0x4000) >> 15;
}

struct Light {
    int red, green, blue;
};

Light light(int y, int u, int v, const Matrix& matrix) {
    const int luma = times(y, matrix.luma) + matrix.bias;
    const int cb = u - 16384;
    const int cr = v - 16384;
    return {luma + times(cr, matrix.redV), luma + times(cb, matrix.greenU) + times(cr, matrix.greenV),
            luma + times(cb, matrix.blueU)};
}

void store(int red, int green, int blue, std::uint8_t* out) {
    out[0] = std::uint8_t(std::clamp(blue, 0, 255));
    out[1] = std::uint8_t(std::clamp(green, 0, 255));
    out[2] = std::uint8_t(std::clamp(red, 0, 255));
    out[3] = 255;
}

/// Between the four corners of the tetrahedron that holds the colour: from black's corner along the longest
/// fraction first to white's.
void fromCube(const Light& light, const std::uint32_t* cube, std::uint8_t* out) {
    const int values[] = {std::clamp(light.red, 0, 8191), std::clamp(light.green, 0, 8191),
                          std::clamp(light.blue, 0, 8191)};
    constexpr int strides[] = {cubeSide * cubeSide, cubeSide, 1};
    int order[] = {0, 1, 2};
    std::stable_sort(order, order + 3, [&](int a, int b) { return (values[a] & 255) > (values[b] & 255); });
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

}
