#include "platform/image/Colour.h"

#include <cmath>

namespace murbo {
namespace {

int digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

std::string_view withoutHashes(std::string_view text) {
    while (!text.empty() && text.front() == '#') text.remove_prefix(1);
    while (!text.empty() && text.back() == '#') text.remove_suffix(1);
    return text;
}

}

std::optional<Colour> Colour::hex(std::string_view text) {
    text = withoutHashes(text);
    if (text.size() != 6 && text.size() != 8) return std::nullopt;
    std::uint8_t channels[4] = {0, 0, 0, 255};
    for (std::size_t at = 0; at < text.size(); at += 2) {
        const int high = digit(text[at]);
        const int low = digit(text[at + 1]);
        if (high < 0 || low < 0) return std::nullopt;
        channels[at / 2] = static_cast<std::uint8_t>(high * 16 + low);
    }
    return Colour{channels[0], channels[1], channels[2], channels[3]};
}

std::uint32_t Colour::premultiplied(double opacity) const {
    const double share = alpha / 255.0 * opacity;
    const auto channel = [&](int value) { return std::uint32_t(std::lround(value * share)); };
    return channel(blue) | channel(green) << 8 | channel(red) << 16 | channel(255) << 24;
}

}
