#pragma once

#include "platform/base/Problem.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// A value in a parsed JSON text, read strictly. It knows the way to itself, so that a failure says where:
/// "clips[3].rating: a whole number is expected". It refers to the value that it came from and lives no
/// longer.
class JsonValue {
public:
    bool isNull() const;
    bool isNumber() const;
    bool isText() const;
    bool isList() const;
    bool isObject() const;

    /// Each of these throws a Problem where the value is of another kind.
    bool boolean() const;
    double number() const;
    /// A number without a fraction that fits; 3.0 is one.
    std::int64_t integer() const;
    const std::string& text() const;

    /// The member of that name, null or not; nothing where the object has none. The last of a name counts.
    std::optional<JsonValue> member(std::string_view name) const;
    /// The names of an object's members, in byte order.
    std::vector<std::string_view> names() const;

    /// The number of elements of an array.
    std::size_t size() const;
    JsonValue element(std::size_t index) const;

    /// Throws a JsonProblem with the way to this value.
    [[noreturn]] void fail(std::string_view what) const;
    /// The same for a member that has to be there.
    [[noreturn]] void failMissing(std::string_view name) const;

private:
    friend class Json;
    JsonValue(const nlohmann::json& given, const JsonValue* from, std::string_view by, std::size_t at)
        : value(&given), parent(from), name(by), index(at) {}

    std::string path() const;

    const nlohmann::json* value;
    const JsonValue* parent; ///< null at the root
    std::string_view name;   ///< in an object, as the document holds it; without data in an array
    std::size_t index;       ///< in an array
};

/// A value that is not what it should be, and where it stands.
class JsonProblem : public Problem {
public:
    JsonProblem(std::string path, std::string_view what);

    std::string way;      ///< "layers[2].keys[0].ease"; empty at the root
    std::string fault;    ///< "a number is expected"
    bool missing = false; ///< what is missing stands at the end of the way
};

/// A parsed JSON text.
class Json {
public:
    /// Nesting beyond this is refused: no file of ours comes near, and what walks it may recurse.
    static constexpr std::size_t deepest = 256;
    /// More values are refused: some forty times what ten hours of transcript need, and still bounded memory.
    static constexpr std::size_t maxValues = 4'000'000;

    /// Reads a whole text in UTF-8. Throws a Problem that names the fault.
    static Json parse(std::string_view text);

    Json(Json&&) noexcept;
    ~Json();

    JsonValue root() const;

    /// The value itself, for those who take what they are given entry by entry and refuse nothing whole.
    const nlohmann::json& value() const { return *document; }

private:
    explicit Json(std::unique_ptr<const nlohmann::json> parsed);
    std::unique_ptr<const nlohmann::json> document;
};

}
