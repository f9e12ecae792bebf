#pragma once

#include "platform/base/Data.h"
#include "platform/base/Field.h"
#include "platform/base/Json.h"
#include "platform/base/JsonWriter.h"
#include "platform/base/RawText.h"
#include "platform/base/Shared.h"
#include "platform/base/UUID.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <numeric>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace murbo {

/// Records to JSON and back, by their lists of fields.
///
/// Reading is strict: a key that is missing or of another kind is a Problem that names the way to it. The key
/// of an optional may be missing or null; a record that says `everyKeyMayBeMissing` takes its defaults for
/// either. Keys that a record does not know are passed over. Writing leaves a missing optional out, and puts
/// keys in byte order.
namespace Codec {

namespace detail {

template <class T, template <class...> class Of>
inline constexpr bool is = false;
template <template <class...> class Of, class... Inner>
inline constexpr bool is<Of<Inner...>, Of> = true;

template <class T>
concept Lenient = requires {
    requires T::everyKeyMayBeMissing;
};

template <class T>
struct Inner;
template <class T>
struct Inner<Shared<T>> {
    using Type = T;
};

template <class T>
inline constexpr bool unknown = false;

/// The places of a record's fields in the order of their keys.
template <class T>
constexpr auto keyOrder() {
    const auto names =
        T::fields([](const auto&... field) { return std::array{std::string_view(field.name)...}; });
    std::array<std::size_t, names.size()> order{};
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(), [&](auto a, auto b) { return names[a] < names[b]; });
    return order;
}

}

template <class T>
T read(const JsonValue& value);
template <class T>
void write(JsonWriter& writer, const T& value);

namespace detail {

// These are made once for each type of member, not for each member: records have hundreds.

template <class Value>
Value readMember(const JsonValue& object, const char* name) {
    const auto member = object.member(name);
    constexpr bool mayBeMissing = is<Value, std::optional>;
    if (member && member->isNull() && !mayBeMissing) member->fail("a value is needed.");
    if (member && !member->isNull()) return read<Value>(*member);
    if constexpr (mayBeMissing)
        return std::nullopt;
    else
        object.failMissing(name);
}

template <class Value>
Value readMemberOr(const Value& otherwise, const JsonValue& object, const char* name) {
    const auto member = object.member(name);
    return member && !member->isNull() ? read<Value>(*member) : otherwise;
}

template <class Owner, class Value>
Value readField(const JsonValue& object, const Field<Owner, Value>& field) {
    if constexpr (Lenient<Owner>) {
        static const Owner defaults;
        return readMemberOr(defaults.*field.member, object, field.name);
    } else {
        return readMember<Value>(object, field.name);
    }
}

template <class T>
T readRecord(const JsonValue& value) {
    // Straight into place: a default record would make up a new identity only to have it replaced.
    return T::fields([&](const auto&... field) { return T{readField(value, field)...}; });
}

template <class T>
T readList(const JsonValue& value) {
    T list;
    list.reserve(value.size());
    for (std::size_t at = 0; at < value.size(); ++at)
        list.push_back(read<typename T::value_type>(value.element(at)));
    return list;
}

template <class T>
T readMap(const JsonValue& value) {
    T map;
    for (const auto name : value.names())
        map.emplace(name, read<typename T::mapped_type>(*value.member(name)));
    return map;
}

template <class T>
T given(std::optional<T> parsed, const JsonValue& value, const char* otherwise) {
    if (!parsed) value.fail(otherwise);
    return std::move(*parsed);
}

/// A member on its way out, its type forgotten.
struct WrittenMember {
    const char* name;
    const void* value;
    void (*write)(JsonWriter& writer, const char* name, const void* value);
};

template <class Value>
void writeMember(JsonWriter& writer, const char* name, const void* member) {
    const auto& value = *static_cast<const Value*>(member);
    if constexpr (is<Value, std::optional>) {
        if (!value) return;
    }
    writer.key(name);
    write(writer, value);
}

template <class T>
void writeRecord(JsonWriter& writer, const T& record) {
    static constexpr auto order = keyOrder<T>();
    const auto members = T::fields([&]<class... Value>(const Field<T, Value>&... field) {
        return std::array{WrittenMember{field.name, &(record.*field.member), &writeMember<Value>}...};
    });
    writer.beginObject();
    for (const auto at : order) members[at].write(writer, members[at].name, members[at].value);
    writer.endObject();
}

template <class T>
void writeList(JsonWriter& writer, const T& list) {
    writer.beginArray();
    for (const auto& value : list) write(writer, value);
    writer.endArray();
}

template <class T>
void writeMap(JsonWriter& writer, const T& map) {
    writer.beginObject();
    for (const auto& [name, value] : map) {
        writer.key(name);
        write(writer, value);
    }
    writer.endObject();
}

}

/// Reads one value; throws a Problem.
template <class T>
T read(const JsonValue& value) {
    using namespace detail;
    if constexpr (std::is_same_v<T, bool>) {
        return value.boolean();
    } else if constexpr (std::is_same_v<T, std::int64_t>) {
        return value.integer();
    } else if constexpr (std::is_same_v<T, double>) {
        return value.number();
    } else if constexpr (std::is_same_v<T, std::string>) {
        return value.text();
    } else if constexpr (std::is_same_v<T, UUID>) {
        return given(UUID::parse(value.text()), value, "an identity is expected");
    } else if constexpr (std::is_same_v<T, Data>) {
        return given(Data::parse(value.text()), value, "base64 text is expected");
    } else if constexpr (HasRawTexts<T>) {
        return given(fromRawText<T>(value.text()), value, "this text is not one of those known");
    } else if constexpr (is<T, std::optional>) {
        return value.isNull() ? T{} : T{read<typename T::value_type>(value)};
    } else if constexpr (is<T, Shared>) {
        return T(read<typename Inner<T>::Type>(value));
    } else if constexpr (is<T, std::vector>) {
        return readList<T>(value);
    } else if constexpr (is<T, std::map>) {
        return readMap<T>(value);
    } else {
        static_assert(Record<T>, "this type has no form in JSON");
        return readRecord<T>(value);
    }
}

/// Writes one value; throws a Problem for a number that is not finite or a text that is not UTF-8.
template <class T>
void write(JsonWriter& writer, const T& value) {
    using namespace detail;
    if constexpr (std::is_same_v<T, bool>) {
        writer.boolean(value);
    } else if constexpr (std::is_same_v<T, std::int64_t>) {
        writer.integer(value);
    } else if constexpr (std::is_same_v<T, double>) {
        writer.number(value);
    } else if constexpr (std::is_same_v<T, std::string>) {
        writer.text(value);
    } else if constexpr (std::is_same_v<T, UUID>) {
        writer.text(value.text());
    } else if constexpr (std::is_same_v<T, Data>) {
        writer.text(value.base64());
    } else if constexpr (HasRawTexts<T>) {
        writer.text(rawText(value));
    } else if constexpr (is<T, std::optional>) {
        value ? write(writer, *value) : writer.null();
    } else if constexpr (is<T, Shared>) {
        write(writer, *value);
    } else if constexpr (is<T, std::vector>) {
        writeList(writer, value);
    } else if constexpr (is<T, std::map>) {
        writeMap(writer, value);
    } else {
        static_assert(Record<T>, "this type has no form in JSON");
        writeRecord(writer, value);
    }
}

/// Reads a whole JSON text.
template <class T>
T decode(std::string_view text) {
    const auto json = Json::parse(text);
    return read<T>(json.root());
}

/// Writes a whole JSON text.
template <class T>
std::string encode(const T& value, JsonWriter::Layout layout = JsonWriter::Layout::pretty) {
    JsonWriter writer(layout);
    write(writer, value);
    return writer.finish();
}

}

}
