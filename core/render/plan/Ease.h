#pragma once

#include "core/model/EaseCurve.h"

#include <optional>
#include <string>

namespace murbo {

/// The curves that everything moves by.
namespace Ease {

/// How far along a curve `progress` (0 to 1) has come. A bounce falls to the ground and bounces three times
/// (the usual four arcs; Penner 2001).
double along(EaseCurve curve, double progress);

/// The same by name, for what never bounces: "linear", "snap"; any other is smooth.
double named(const std::optional<std::string>& name, double progress);

}

}
