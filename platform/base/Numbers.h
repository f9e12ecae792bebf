#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace murbo {

namespace Numbers {

/// The number that a whole text stands for, in every locale alike: "83.5", "-1e3", "+.5". Nothing for any
/// other text, blanks round it and numbers that are not finite included.
std::optional<double> parse(std::string_view text);

/// The number in at least two digits: "07", "14", "123".
std::string twoDigits(std::int64_t number);

}

}
