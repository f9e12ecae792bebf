#include "core/render/plan/StageValue.h"

#include "core/playbooks/ParameterName.h"
#include "platform/base/Text.h"

namespace murbo::Stage {
namespace {

/// What a filled-in text may grow to, and how many parameters it may hold; what a parameter's value says is
/// never read for parameters again.
constexpr std::size_t maxBytes = 100'000;
constexpr int maxParameters = 100;
constexpr std::size_t longestName = 200;

bool isWholeParameter(std::string_view text) {
    const auto name = text.substr(1);
    return !name.empty() && text.front() == '$' && ParameterName::length(name) == name.size();
}

/// The parameter with the longest name that a text begins with, so that "$title2" is not taken for "$title".
const Values::value_type* beginning(const Values& values, std::string_view text) {
    for (std::size_t size = std::min(text.size(), longestName); size > 0; --size)
        if (const auto found = values.find(std::string(text.substr(0, size))); found != values.end())
            return &*found;
    return nullptr;
}

std::string filled(std::string_view text, const Values& values) {
    std::string result;
    for (int count = 0; count < maxParameters && result.size() < maxBytes; ++count) {
        const auto dollar = text.find('$');
        result += text.substr(0, dollar);
        if (dollar == text.npos) return result;
        text.remove_prefix(dollar + 1);
        const auto* parameter = beginning(values, text);
        result += parameter ? parameter->second : "$";
        if (parameter) text.remove_prefix(parameter->first.size());
    }
    return result.append(text);
}

}

std::optional<std::string> value(const std::optional<std::string>& text, const Values& values) {
    if (!text) return std::nullopt;
    if (text->find('$') == text->npos) return Text::beginning(*text, maxBytes);
    if (!isWholeParameter(*text)) return Text::beginning(filled(*text, values), maxBytes);
    const auto found = values.find(text->substr(1));
    if (found == values.end()) return std::nullopt;
    return Text::beginning(found->second, maxBytes);
}

}
