#include "core/playbooks/JsonChanges.h"

#include <set>
#include <utility>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo::JsonChanges {
namespace {

using Json = nlohmann::json;
using Lines = std::vector<std::string>;

constexpr std::size_t longestText = 40;

/// A text's first characters, and whether that is all of it.
std::pair<std::string, bool> beginning(const std::string& text) {
    std::size_t at = 0;
    for (std::size_t count = 0; at < text.size() && count < longestText; ++count)
        for (++at; at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;) ++at;
    return {text.substr(0, at), at == text.size()};
}

std::string brief(const Json& value) {
    if (value.is_string()) {
        const auto [text, whole] = beginning(value.get_ref<const std::string&>());
        return fmt::format("“{}{}”", text, whole ? "" : "…");
    }
    if (value.is_structured()) return fmt::format("({} bytes)", value.dump().size());
    return value.dump();
}

void compare(const Json& before, const Json& after, const std::string& path, Lines& lines);

void compareMember(const Json* before, const Json* after, const std::string& path, Lines& lines) {
    if (!before)
        lines.push_back(fmt::format("{}: added {}", path, brief(*after)));
    else if (!after)
        lines.push_back(fmt::format("{}: removed", path));
    else
        compare(*before, *after, path, lines);
}

const Json* member(const Json& object, const std::string& key) {
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

void compareObjects(const Json& before, const Json& after, const std::string& path, Lines& lines) {
    std::set<std::string> keys;
    for (const auto* object : {&before, &after})
        for (const auto& [key, _] : object->items()) keys.insert(key);
    for (const auto& key : keys) {
        if (path.empty() && key == "version") continue;
        compareMember(member(before, key), member(after, key), path.empty() ? key : path + "." + key, lines);
    }
}

void compareLists(const Json& before, const Json& after, const std::string& path, Lines& lines) {
    for (std::size_t at = 0; at < std::max(before.size(), after.size()); ++at)
        compareMember(at < before.size() ? &before[at] : nullptr, at < after.size() ? &after[at] : nullptr,
                      fmt::format("{}[{}]", path, at), lines);
}

void compare(const Json& before, const Json& after, const std::string& path, Lines& lines) {
    if (before.is_object() && after.is_object())
        compareObjects(before, after, path, lines);
    else if (before.is_array() && after.is_array())
        compareLists(before, after, path, lines);
    else if (before != after)
        lines.push_back(
            fmt::format("{}: {} → {}", path.empty() ? "the top" : path, brief(before), brief(after)));
}

}

std::vector<std::string> lines(std::string_view before, std::string_view after) {
    Lines changes;
    const auto old = Json::parse(before, nullptr, false);
    const auto now = Json::parse(after, nullptr, false);
    if (!old.is_discarded() && !now.is_discarded()) compare(old, now, "", changes);
    return changes;
}

}
