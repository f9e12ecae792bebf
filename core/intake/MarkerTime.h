#pragma once

#include <optional>
#include <string_view>

namespace murbo {

/// A moment as it stands in a markers file.
namespace MarkerTime {

/// The seconds that a field stands for: one to three numbers with colons between, each sixty of the one after
/// it. Nothing where it is no time, or none that is finite.
std::optional<double> parse(std::string_view field);

}

}
