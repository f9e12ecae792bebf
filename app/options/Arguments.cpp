#include "app/options/Arguments.h"

#include <algorithm>

namespace murbo {

bool Arguments::has(std::string_view option) const {
    return after(option, 0).has_value();
}

std::optional<std::string> Arguments::value(std::string_view option) const {
    const auto rest = after(option, 1);
    return rest ? std::optional(rest->front()) : std::nullopt;
}

std::optional<std::vector<std::string>> Arguments::after(std::string_view option, std::size_t min) const {
    const auto found = std::find(words.begin(), words.end(), option);
    if (found == words.end() || words.end() - found - 1 < static_cast<std::ptrdiff_t>(min)) return {};
    return std::vector(found + 1, words.end());
}

}
