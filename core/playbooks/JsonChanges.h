#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace murbo::JsonChanges {

/// What changed between two JSON objects, a short line each, with the path to it. The version at the top is
/// passed over. Nothing where one of them is no JSON.
std::vector<std::string> lines(std::string_view before, std::string_view after);

}
