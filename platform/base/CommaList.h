#pragma once

#include <string_view>
#include <vector>

namespace murbo {

/// Lists as people type them: "C01,C03".
namespace CommaList {

/// What stands between the commas, as it is; of an empty list one empty entry.
std::vector<std::string_view> entries(std::string_view list);

}

}
