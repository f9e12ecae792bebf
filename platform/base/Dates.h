#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace murbo {

/// A moment of the calendar.
using Date = std::chrono::system_clock::time_point;

/// Dates as text, by ISO 8601: "2026-01-10T20:15:30Z".
namespace Dates {

/// In whole seconds of UTC.
std::string text(Date date);

/// Reads that form, with or without a fraction of a second, in UTC or at an offset ("+07:00"). Of the years
/// 1678 to 2261: a Date counts no others.
std::optional<Date> parse(std::string_view text);

}

}
