#include "platform/base/Data.h"

#include <array>
#include <cstdint>

namespace murbo {
namespace {

constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr int notADigit = -1;

constexpr auto values = [] {
    std::array<int, 256> table{};
    table.fill(notADigit);
    for (std::size_t value = 0; value < digits.size(); ++value)
        table[static_cast<unsigned char>(digits[value])] = static_cast<int>(value);
    return table;
}();

std::uint32_t byteAt(std::string_view bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

std::size_t paddingOf(std::string_view text) {
    if (text.ends_with("==")) return 2;
    return text.ends_with('=') ? 1 : 0;
}

}

std::string Data::base64() const {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const auto group = byteAt(bytes, at) << 16 | byteAt(bytes, at + 1) << 8 | byteAt(bytes, at + 2);
        const auto left = bytes.size() - at;
        text += digits[group >> 18];
        text += digits[group >> 12 & 63];
        text += left > 1 ? digits[group >> 6 & 63] : '=';
        text += left > 2 ? digits[group & 63] : '=';
    }
    return text;
}

std::optional<Data> Data::parse(std::string_view base64) {
    if (base64.size() % 4 != 0) return std::nullopt;
    const auto padding = paddingOf(base64);
    Data data;
    data.bytes.reserve(base64.size() / 4 * 3);
    for (std::size_t at = 0; at < base64.size(); at += 4) {
        std::uint32_t group = 0;
        for (std::size_t digit = at; digit < at + 4; ++digit) {
            const bool padded = digit + padding >= base64.size();
            const int value = padded ? 0 : values[static_cast<unsigned char>(base64[digit])];
            if (value == notADigit) return std::nullopt;
            group = group << 6 | static_cast<std::uint32_t>(value);
        }
        for (int shift = 16; shift >= 0; shift -= 8) data.bytes += static_cast<char>(group >> shift & 255);
    }
    for (auto extra = padding; extra > 0; --extra) data.bytes.pop_back();
    return data;
}

}
