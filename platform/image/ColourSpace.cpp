#include "platform/image/ColourSpace.h"

#include <cmath>
#include <mutex>

namespace murbo::ColourSpace {
namespace {

constexpr double referenceWhite = 203; ///< cd/m², ITU-R BT.2408
constexpr double peak = 1000;          ///< cd/m², of the display that HLG is decoded for
constexpr double displayGamma = 2.4;   ///< ITU-R BT.1886

struct Shares {
    double red;
    double blue;
};

/// What red and blue have in brightness.
Shares shares(Frame::Matrix matrix) {
    if (matrix == Frame::Matrix::bt601) return {0.299, 0.114};
    if (matrix == Frame::Matrix::bt2020) return {0.2627, 0.0593};
    return {0.2126, 0.0722};
}

/// ITU-R BT.2100, HLG inverse OETF: signal to scene light, 0 to 1.
double sceneLight(double signal) {
    constexpr double a = 0.17883277;
    constexpr double b = 1 - 4 * a;
    const double c = 0.5 - a * std::log(4 * a);
    return signal <= 0.5 ? signal * signal / 3 : (std::exp((signal - c) / a) + b) / 12;
}

/// ITU-R BT.2100, HLG OOTF: scene light to light on the display, in reference whites.
Channels hlg(Channels coded) {
    const Channels scene{sceneLight(coded.red), sceneLight(coded.green), sceneLight(coded.blue)};
    const double brightness = 0.2627 * scene.red + 0.6780 * scene.green + 0.0593 * scene.blue;
    const double gain = brightness > 0 ? std::pow(brightness, 0.2) * peak / referenceWhite : 0;
    return {scene.red * gain, scene.green * gain, scene.blue * gain};
}

/// ITU-R BT.2100, PQ EOTF, in reference whites.
double pq(double signal) {
    const double root = std::pow(signal, 1 / 78.84375);
    const double light = std::max(root - 0.8359375, 0.0) / (18.8515625 - 18.6875 * root);
    return std::pow(light, 1 / 0.1593017578125) * 10000 / referenceWhite;
}

Channels decoded(Channels coded, Frame::Transfer transfer) {
    if (transfer == Frame::Transfer::hlg) return hlg(coded);
    if (transfer == Frame::Transfer::pq) return {pq(coded.red), pq(coded.green), pq(coded.blue)};
    return {std::pow(coded.red, displayGamma), std::pow(coded.green, displayGamma),
            std::pow(coded.blue, displayGamma)};
}

/// ITU-R BT.2087: linear BT.2020 to BT.709.
Channels toBT709(const Channels& light) {
    return {1.660491 * light.red - 0.587641 * light.green - 0.072850 * light.blue,
            -0.124551 * light.red + 1.132900 * light.green - 0.008349 * light.blue,
            -0.018151 * light.red - 0.100579 * light.green + 1.118730 * light.blue};
}

double largest(const Channels& light) {
    return std::max({light.red, light.green, light.blue});
}

/// A distance from grey drawn in: up to 0.98 as it is, from there 1.77 (beyond what BT.2020 reaches) comes
/// to 1, where BT.709 ends.
double drawnIn(double distance) {
    constexpr double start = 0.98;
    constexpr double room = 1 - start;
    constexpr double reach = (1.77 - start) / room;
    const double beyond = (distance - start) / room;
    if (beyond <= 0) return distance;
    return start + room * beyond / (1 + beyond * (reach - 1) / reach);
}

double withSign(double value, double exponent) {
    return std::copysign(std::pow(std::abs(value), exponent), value);
}

/// Into the gamut: each channel's distance from the largest one, as a share of it, is drawn in. Measured in
/// codes, as the eye sees it: in light nearly all saturated colours lie right at the edge.
Channels withinGamut(const Channels& light) {
    const double grey = largest(light);
    if (grey <= 0) return {};
    const auto inside = [&](double channel) {
        const double distance = 1 - withSign(channel / grey, 1 / displayGamma);
        return grey * withSign(1 - drawnIn(distance), displayGamma);
    };
    return {inside(light.red), inside(light.green), inside(light.blue)};
}

/// The tone curve: light in reference whites to display light, 0 to 1. Within 8 levels of ITU-R BT.2390's for
/// the same displays.
double shoulder(double light) {
    constexpr double knee = 0.5;
    constexpr double top = (peak / referenceWhite - knee) / (1 - knee);
    const double beyond = (light - knee) / (1 - knee);
    if (beyond <= 0) return light;
    return std::min(knee + (1 - knee) * beyond * (1 + beyond / (top * top)) / (1 + beyond), 1.0);
}

/// The mean of two ways: the whole colour scaled by its largest channel, which keeps hues, and each channel
/// by itself, which lets bright colours pale towards white as film does. By the first alone a sunlit sky
/// looks painted.
Channels dimmed(const Channels& light) {
    const double bright = largest(light);
    const double gain = bright > 0 ? shoulder(bright) / bright : 0;
    const auto mixed = [&](double channel) { return (channel * gain + shoulder(channel)) / 2; };
    return {mixed(light.red), mixed(light.green), mixed(light.blue)};
}

double coded(double light) {
    return std::pow(std::clamp(light, 0.0, 1.0), 1 / displayGamma);
}

std::uint32_t packed(const Channels& light) {
    const auto tenBits = [](double channel) { return std::uint32_t(std::lround(channel * 1020)); };
    return tenBits(light.blue) | tenBits(light.green) << 10 | tenBits(light.red) << 20;
}

std::vector<std::uint32_t> filled(Frame::Transfer transfer, Frame::Primaries primaries) {
    constexpr int side = Kernels::cubeSide;
    constexpr double last = side - 1;
    std::vector<std::uint32_t> cube;
    cube.reserve(side * side * side);
    for (int at = 0; at < side * side * side; ++at) {
        const Channels light{at / (side * side) / last, at / side % side / last, at % side / last};
        cube.push_back(packed(toneMapped(light, transfer, primaries)));
    }
    return cube;
}

/// `white` in levels; `rounding` is added so that truncating rounds.
Kernels::YCbCrMatrix matrix(const Frame& frame, double white, int rounding) {
    // On the samples' scale 8-bit codes keep their numbers whatever the depth.
    const double span = 256 - std::ldexp(1.0, 8 - std::min(frame.depth, 16));
    const double lumaGain = white / (frame.fullRange ? span : 219);
    const double chromaGain = white / (frame.fullRange ? span : 224);
    const auto [red, blue] = shares(frame.matrix);
    const double green = 1 - red - blue;
    const bool grey = frame.layout == Frame::Layout::grey;
    const auto factor = [](double value) { return std::int16_t(std::lround(value * 8192)); };
    const auto chroma = [&](double value) { return factor(grey ? 0 : value * chromaGain); };
    const double black = frame.fullRange ? 0 : 16;
    return {factor(lumaGain),
            chroma(2 * (1 - red)),
            chroma(-2 * (1 - blue) * blue / green),
            chroma(-2 * (1 - red) * red / green),
            chroma(2 * (1 - blue)),
            std::int16_t(std::lround(-black * lumaGain * 32) + rounding)};
}

}

Channels toneMapped(Channels light, Frame::Transfer transfer, Frame::Primaries primaries) {
    light = decoded(light, transfer);
    if (primaries == Frame::Primaries::bt2020) light = withinGamut(toBT709(light));
    if (transfer != Frame::Transfer::sdr) light = dimmed(light);
    return {coded(light.red), coded(light.green), coded(light.blue)};
}

Kernels::YCbCrMatrix toPixels(const Frame& frame) {
    return matrix(frame, 255, 16);
}

Kernels::YCbCrMatrix toCube(const Frame& frame) {
    return matrix(frame, 256, 0);
}

const std::uint32_t* cube(const Frame& frame) {
    const bool wide = frame.primaries == Frame::Primaries::bt2020;
    if (frame.transfer == Frame::Transfer::sdr && !wide) return nullptr;
    static std::once_flag flags[6];
    static std::vector<std::uint32_t> cubes[6];
    const int which = int(frame.transfer) * 2 + (wide ? 1 : 0);
    std::call_once(flags[which], [&] { cubes[which] = filled(frame.transfer, frame.primaries); });
    return cubes[which].data();
}

}
