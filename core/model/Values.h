#pragma once

#include <map>
#include <string>

namespace murbo {

/// The filled-in parameters of a playbook.
using Values = std::map<std::string, std::string>;

}
