#pragma once

#include "core/model/package/Activity.h"

#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// What models cost their owner, over all projects and in one.
namespace Spending {

/// Adds what a request came to, in dollars, to today's sum. A sum that can't be kept never stops the work.
void add(double dollars);

/// What was spent today in all projects, in dollars; a day begins at midnight of this computer's clock.
double today();

/// Why a run with that estimate, in dollars, may not start: the setting "spendCap", dollars a day, would
/// would be passed. Nothing where there is no cap or room enough.
std::optional<std::string> refusal(std::optional<double> estimate);

/// A project's log in words: what each day, task and model came to.
std::string summary(const std::vector<Activity>& log);

}

}
