#pragma once

#include <optional>
#include <string_view>

namespace murbo {

namespace Numbers {

/// The number that a whole text tells, in every locale alike: "83.5", "-1e3", "+.5". Nothing for any other
/// text, blanks round it and numbers that are not finite included.
std::optional<double> parse(std::string_view text);

}

}
