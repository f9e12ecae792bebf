#pragma once

#include "core/ai/Said.h"
#include "core/model/Project.h"

#include <string>

namespace murbo {

/// A whole project in one short answer.
namespace Overview {

/// Sources, a line for every clip that is not rejected, videos and ideas. Where clips are many their lines
/// are shortened so that the whole stays near `maxBytes`.
std::string text(const Project& project, const Said& said);

inline constexpr std::size_t maxBytes = 39'000;

}

}
