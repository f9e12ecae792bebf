#pragma once

#include <optional>
#include <string>

#include <nlohmann/json_fwd.hpp>

namespace murbo {

namespace Ideas {

/// A text that holds something besides blanks and line breaks, as it stands; nothing for any other value.
std::optional<std::string> text(const nlohmann::json& value);

/// The same for a member of an object; nothing where it isn't there.
std::optional<std::string> text(const nlohmann::json& object, const char* name);

}

}
