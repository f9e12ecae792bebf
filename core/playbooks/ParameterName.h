#pragma once

#include <cstddef>
#include <string_view>

namespace murbo::ParameterName {

/// The length in bytes of the parameter name that a UTF-8 text begins with: letters and digits of any script
/// with their marks, and "_". 0 where it begins with none.
std::size_t length(std::string_view text);

}
