#pragma once

#include "core/model/Values.h"

#include <optional>
#include <string>

namespace murbo::Stage {

/// A layer's text with its parameters filled in. Nothing for none, and for a whole parameter without a value.
std::optional<std::string> value(const std::optional<std::string>& text, const Values& values);

}
