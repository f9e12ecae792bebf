#include "core/ai/Reply.h"

#include "platform/base/Json.h"
#include "platform/base/Problem.h"

#include <nlohmann/json.hpp>

namespace murbo {
namespace {

using nlohmann::json;

constexpr std::size_t longest = 32 << 20; // bytes

/// Whether brackets nest no deeper than what walks a value can stand. Texts are passed over.
bool isShallow(std::string_view text) {
    std::size_t depth = 0;
    bool quoted = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (quoted) {
            if (c == '\\') ++at;
            if (c == '"') quoted = false;
        } else if (c == '"') {
            quoted = true;
        } else if (c == '{' || c == '[') {
            if (++depth > Json::deepest) return false;
        } else if ((c == '}' || c == ']') && depth > 0) {
            --depth;
        }
    }
    return true;
}

}

json Reply::object(std::string_view text) {
    const auto first = text.find('{');
    const auto last = text.rfind('}');
    if (first == text.npos || last == text.npos || last <= first) return json::object();
    const auto stretch = text.substr(first, last - first + 1);
    if (stretch.size() > longest || !isShallow(stretch)) return json::object();
    auto parsed = json::parse(stretch, nullptr, false);
    return parsed.is_object() ? parsed : json::object();
}

const json& Reply::member(const json& value, const char* name) {
    static const json nothing;
    const auto found = value.is_object() ? value.find(name) : value.end();
    return found == value.end() ? nothing : *found;
}

}
