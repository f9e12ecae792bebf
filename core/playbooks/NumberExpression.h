#pragma once

#include "core/model/Look.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// Numbers that depend on parameters, such as "1-$split".
namespace murbo::NumberExpression {

/// Bytes of an expression, and of a parameter's value in one: they are read again for every frame.
inline constexpr std::size_t maxBytes = 1000;

/// The value of an expression: + - * / and brackets, white space passed over. A division by 0 divides by 1. A
/// parameter that is no number has no value, or counts as 1 where not `strict`. Nothing for any other text.
std::optional<double> value(std::string_view text, const Values& values, bool strict);

/// The number that a parameter is filled in with.
std::optional<double> parameter(const std::string& name, const Values& values);

}
