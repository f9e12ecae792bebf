#pragma once

#include "core/model/Project.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

namespace murbo {

/// A project in plain lines.
namespace ProjectSummary {

/// The whole text, with no line break at its end. `missing` are the sources whose file is not there.
std::string text(const Project& project, const std::set<UUID>& missing);

/// "59:59", "1:00:00": whole seconds, rounded down. What is no time shows as "?".
std::string clock(double seconds);

/// "1 line", "0 lines".
std::string count(std::size_t number, std::string_view word);

}

}
