#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace murbo {

/// Opaque bytes; base64 text in JSON.
struct Data {
    std::string bytes;
    bool operator==(const Data&) const = default;

    /// The base64 text (RFC 4648, section 4), padded.
    std::string base64() const;

    /// Reads padded base64 text; anything else, white space included, is nothing.
    static std::optional<Data> parse(std::string_view base64);
};

}
