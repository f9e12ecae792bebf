#pragma once

#include <string_view>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

/// A model's text, read as JSON. Nothing in it is believed: every reader checks each value that it takes.
namespace Reply {

/// The object that stands in a reply, from the first "{" to the last "}"; prose or a code fence round it does
/// no harm. An empty object where there is none, where it can't be read, or where it nests or holds more than
/// an answer could need.
nlohmann::json object(std::string_view text);

/// A member of an object, or null where the value is no object or has none of that name.
const nlohmann::json& member(const nlohmann::json& value, const char* name);

}

}
