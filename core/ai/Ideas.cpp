#include "core/ai/Ideas.h"

#include "platform/base/Text.h"

#include <nlohmann/json.hpp>

namespace murbo {

std::optional<std::string> Ideas::text(const nlohmann::json& value) {
    if (!value.is_string()) return std::nullopt;
    const auto& words = value.get_ref<const std::string&>();
    return Text::trimmed(words).empty() ? std::nullopt : std::optional(words);
}

std::optional<std::string> Ideas::text(const nlohmann::json& object, const char* name) {
    if (!object.is_object()) return std::nullopt;
    const auto found = object.find(name);
    return found == object.end() ? std::nullopt : text(*found);
}

}
