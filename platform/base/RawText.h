#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>

namespace murbo {

/// An enum that has a text for each case: beside it stands `rawTexts(Enum)`, an array in the order of the
/// cases, which count from 0.
template <class Enum>
concept HasRawTexts = std::is_enum_v<Enum> && requires(Enum value) {
    rawTexts(value).size();
};

/// The text of a case, as it stands in files and as people read it.
template <HasRawTexts Enum>
constexpr std::string_view rawText(Enum value) {
    return rawTexts(value)[static_cast<std::size_t>(value)];
}

/// The case with that very text.
template <HasRawTexts Enum>
constexpr std::optional<Enum> fromRawText(std::string_view text) {
    const auto texts = rawTexts(Enum{});
    for (std::size_t at = 0; at < texts.size(); ++at)
        if (texts[at] == text) return static_cast<Enum>(at);
    return std::nullopt;
}

}
