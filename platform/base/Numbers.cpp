#include "platform/base/Numbers.h"

#include <charconv>
#include <cmath>

namespace murbo {

std::optional<double> Numbers::parse(std::string_view text) {
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::string Numbers::twoDigits(std::int64_t number) {
    return std::string(number > 9 ? 0 : 1, '0') + std::to_string(number);
}

}
