#include "platform/base/UUID.h"

#include "platform/base/Problem.h"

#include <cstring>

#include <unistd.h>

namespace murbo {
namespace {

constexpr std::size_t textLength = 36;

bool isDash(std::size_t position) {
    return position == 8 || position == 13 || position == 18 || position == 23;
}

int digit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    return -1;
}

}

UUID UUID::make() {
    UUID id;
    if (::getentropy(id.bytes.data(), id.bytes.size()) != 0)
        throw Problem("This system gives no random numbers.");
    id.bytes[6] = static_cast<std::uint8_t>((id.bytes[6] & 0x0F) | 0x40);
    id.bytes[8] = static_cast<std::uint8_t>((id.bytes[8] & 0x3F) | 0x80);
    return id;
}

std::optional<UUID> UUID::parse(std::string_view text) {
    if (text.size() != textLength) return std::nullopt;
    UUID id;
    std::size_t nibble = 0;
    for (std::size_t at = 0; at < textLength; ++at) {
        if (isDash(at)) {
            if (text[at] != '-') return std::nullopt;
            continue;
        }
        const int value = digit(text[at]);
        if (value < 0) return std::nullopt;
        auto& byte = id.bytes[nibble / 2];
        byte = static_cast<std::uint8_t>(byte << 4 | value);
        ++nibble;
    }
    return id;
}

std::string UUID::text() const {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string result;
    result.reserve(textLength);
    for (const auto byte : bytes) {
        if (isDash(result.size())) result += '-';
        result += digits[byte >> 4];
        result += digits[byte & 15];
    }
    return result;
}

}

std::size_t std::hash<murbo::UUID>::operator()(const murbo::UUID& id) const noexcept {
    std::size_t value = 0;
    std::memcpy(&value, id.bytes.data(), sizeof value);
    return value;
}
