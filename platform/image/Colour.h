#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace murbo {

/// An sRGB colour with straight (not premultiplied) alpha, 0 to 255 a channel.
struct Colour {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;

    /// Reads "RRGGBB" or "RRGGBBAA", with any "#" at either end passed over; anything else is no colour.
    static std::optional<Colour> hex(std::string_view text);

    /// As a premultiplied pixel at some opacity, 0 to 1.
    std::uint32_t premultiplied(double opacity = 1) const;

    static const Colour black;
    static const Colour white;
    static const Colour clear;

    bool operator==(const Colour&) const = default;
};

inline constexpr Colour Colour::black{0, 0, 0, 255};
inline constexpr Colour Colour::white{255, 255, 255, 255};
inline constexpr Colour Colour::clear{0, 0, 0, 0};

}
