#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace murbo {

/// A record's identity: 128 random bits, written as uppercase 8-4-4-4-12 hexadecimal text.
class UUID {
public:
    /// The nil identity; a record gets a real one from `make`.
    constexpr UUID() = default;

    /// A new random identity (RFC 9562, version 4). Safe from any thread.
    static UUID make();

    /// Reads 8-4-4-4-12 hexadecimal text of either case; anything else is no identity.
    static std::optional<UUID> parse(std::string_view text);

    /// The uppercase text.
    std::string text() const;

    auto operator<=>(const UUID&) const = default;

private:
    friend struct std::hash<UUID>;
    std::array<std::uint8_t, 16> bytes{};
};

}

template <>
struct std::hash<murbo::UUID> {
    std::size_t operator()(const murbo::UUID& id) const noexcept;
};
