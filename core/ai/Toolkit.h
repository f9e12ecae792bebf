#pragma once

#include "core/ai/Kit.h"

#include <span>

namespace murbo {

namespace Toolkit {

/// All kits, in the order shown.
std::span<const Kit> kits();

const Kit& kit(Kit::ID id);

}

}
