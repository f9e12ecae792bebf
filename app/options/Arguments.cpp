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

std::vector<std::string> Arguments::without(std::initializer_list<std::string_view> options,
                                            std::initializer_list<std::string_view> valued,
                                            const std::vector<std::string>& words) {
    const auto isOneOf = [](const auto& list, const std::string& word) {
        return std::find(list.begin(), list.end(), word) != list.end();
    };
    std::vector<std::string> left;
    for (std::size_t at = 0; at < words.size(); ++at) {
        if (isOneOf(valued, words[at])) {
            ++at;
        } else if (!isOneOf(options, words[at])) {
            left.push_back(words[at]);
        }
    }
    return left;
}

}
