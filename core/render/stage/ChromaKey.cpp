#include "core/render/stage/ChromaKey.h"

#include <algorithm>
#include <cmath>

namespace murbo::ChromaKey {

namespace {

constexpr int side = 32;
constexpr double gone = 22; // degrees from the key's hue
constexpr double band = 18; // in which colours fade in
constexpr double darkest = 0.2;
constexpr double palest = 0.28;
constexpr double minSpread = 0.03; // of a key's channels, for it to have a hue

/// Channels from 0 to 1.
struct Tone {
    double red;
    double green;
    double blue;

    double highest() const { return std::max({red, green, blue}); }
    double spread() const { return highest() - std::min({red, green, blue}); }

    /// Degrees on the circle of colours, 0 (red) to 360; 0 for a grey.
    double hue() const {
        const double max = highest();
        const double range = spread();
        if (!(range > 0)) return 0;
        const double sixths = max == red     ? (green - blue) / range
                              : max == green ? (blue - red) / range + 2
                                             : (red - green) / range + 4;
        return sixths < 0 ? sixths * 60 + 360 : sixths * 60;
    }
};

double alpha(const Tone& tone, double key) {
    const double max = tone.highest();
    const double range = tone.spread();
    if (!(range > 0 && max > darkest && range / max > palest)) return 1;
    const double apart = std::abs(tone.hue() - key);
    return std::clamp((std::min(apart, 360 - apart) - gone) / band, 0.0, 1.0);
}

}

std::optional<Filters::ColourCube> cube(Colour key) {
    const Tone wanted{key.red / 255.0, key.green / 255.0, key.blue / 255.0};
    if (wanted.spread() < minSpread) return {};
    const double hue = wanted.hue();
    auto values = std::make_shared<std::vector<float>>();
    values->reserve(std::size_t{side} * side * side * 4);
    for (int blue = 0; blue < side; ++blue)
        for (int green = 0; green < side; ++green)
            for (int red = 0; red < side; ++red) {
                const double steps = side - 1;
                const Tone tone{red / steps, green / steps, blue / steps};
                const double kept = alpha(tone, hue);
                for (const double channel : {tone.red, tone.green, tone.blue, 1.0})
                    values->push_back(float(kept * channel));
            }
    return Filters::ColourCube{side, std::move(values)};
}

}
