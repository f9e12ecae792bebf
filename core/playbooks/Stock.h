#pragma once

#include "core/playbooks/Book.h"

#include <vector>

namespace murbo::Stock {

/// The playbooks that the program brings along, in the order in which they are offered.
const std::vector<Book>& books();

}
