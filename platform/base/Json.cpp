#include "platform/base/Json.h"

#include "platform/base/Problem.h"

#include <array>
#include <cmath>
#include <exception>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo {
namespace {

/// Refuses, before anything is built, a text whose values would fill the memory or whose depth is absurd.
void checkBounds(std::string_view text) {
    std::size_t depth = 0;
    std::size_t values = 1;
    bool quoted = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (quoted) {
            if (c == '\\') ++at;
            if (c == '"') quoted = false;
            continue;
        }
        if (c == '"') quoted = true;
        if (c == ',') ++values;
        if (c == '[' || c == '{') ++depth, ++values;
        if ((c == ']' || c == '}') && depth > 0) --depth;
        if (depth > Json::deepest) throw Problem("The JSON is nested too deeply.");
        if (values > Json::maxValues) throw Problem("The JSON holds too many values.");
    }
}

/// The library's words without its own name and number.
std::string plainWords(const std::string& message) {
    const auto bracket = message.find("] ");
    return bracket == std::string::npos ? message : message.substr(bracket + 2);
}

}

bool JsonValue::isNull() const {
    return value->is_null();
}

bool JsonValue::isNumber() const {
    return value->is_number();
}

bool JsonValue::isText() const {
    return value->is_string();
}

bool JsonValue::isList() const {
    return value->is_array();
}

bool JsonValue::isObject() const {
    return value->is_object();
}

bool JsonValue::boolean() const {
    if (!value->is_boolean()) fail("true or false is expected");
    return value->get<bool>();
}

double JsonValue::number() const {
    if (!value->is_number()) fail("a number is expected");
    return value->get<double>();
}

std::int64_t JsonValue::integer() const {
    if (value->is_number_unsigned()) {
        const auto number = value->get<std::uint64_t>();
        if (number <= static_cast<std::uint64_t>(INT64_MAX)) return static_cast<std::int64_t>(number);
    } else if (value->is_number_integer()) {
        return value->get<std::int64_t>();
    } else if (value->is_number_float()) {
        const auto number = value->get<double>();
        constexpr double bound = 9223372036854775808.0; // 2^63
        if (number == std::floor(number) && -bound <= number && number < bound)
            return static_cast<std::int64_t>(number);
    }
    fail("a whole number is expected");
}

const std::string& JsonValue::text() const {
    if (!value->is_string()) fail("a text is expected");
    return value->get_ref<const std::string&>();
}

std::optional<JsonValue> JsonValue::member(std::string_view wanted) const {
    if (!value->is_object()) fail("an object is expected");
    const auto& members = value->get_ref<const nlohmann::json::object_t&>();
    const auto found = members.find(wanted);
    if (found == members.end()) return std::nullopt;
    return JsonValue(found->second, this, found->first, 0);
}

std::vector<std::string_view> JsonValue::names() const {
    if (!value->is_object()) fail("an object is expected");
    std::vector<std::string_view> names;
    for (const auto& [key, _] : value->get_ref<const nlohmann::json::object_t&>()) names.push_back(key);
    return names;
}

std::size_t JsonValue::size() const {
    if (!value->is_array()) fail("a list is expected");
    return value->size();
}

JsonValue JsonValue::element(std::size_t at) const {
    return JsonValue((*value)[at], this, {}, at);
}

void JsonValue::fail(std::string_view what) const {
    throw JsonProblem(path(), what);
}

void JsonValue::failMissing(std::string_view key) const {
    JsonProblem problem(path(), fmt::format("the key “{}” is missing", key));
    problem.way += problem.way.empty() ? std::string(key) : "." + std::string(key);
    problem.missing = true;
    throw problem;
}

std::string JsonValue::path() const {
    if (!parent) return "";
    const auto before = parent->path();
    if (!name.data()) return fmt::format("{}[{}]", before, index);
    return before.empty() ? std::string(name) : fmt::format("{}.{}", before, name);
}

JsonProblem::JsonProblem(std::string path, std::string_view what)
    : Problem(path.empty() ? std::string(what) : fmt::format("{}: {}", path, what)),
      way(std::move(path)),
      fault(what) {}

Json::Json(std::unique_ptr<const nlohmann::json> parsed) : document(std::move(parsed)) {}
Json::Json(Json&&) noexcept = default;
Json::~Json() = default;

Json Json::parse(std::string_view text) {
    checkBounds(text);
    try {
        return Json(std::make_unique<const nlohmann::json>(nlohmann::json::parse(text)));
    } catch (const nlohmann::json::exception& error) {
        std::throw_with_nested(Problem("It is not valid JSON: " + plainWords(error.what())));
    }
}

JsonValue Json::root() const {
    return JsonValue(*document, nullptr, {}, 0);
}

}
