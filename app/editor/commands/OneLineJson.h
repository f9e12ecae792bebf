#pragma once

#include "platform/base/Codec.h"

#include <optional>
#include <string>

namespace murbo {

/// What reading commands give: JSON texts in one line.
namespace OneLineJson {

template <class T>
std::string of(const T& value) {
    return Codec::encode(value, JsonWriter::Layout::compact);
}

/// Nothing where there is no value.
template <class T>
std::optional<std::string> of(const std::optional<T>& value) {
    return value ? std::optional(of(*value)) : std::nullopt;
}

}

}
