#pragma once

#include "core/ai/Price.h"

#include <optional>
#include <stop_token>
#include <string>

namespace murbo {

/// The price list that is kept among the settings, fetched at most once a day.
namespace Prices {

/// What a model costs, where the kept list says so.
std::optional<Price> price(const std::string& modelId);

/// Fetches the list where the kept one is more than a day old or does not know the model. A fetch that fails
/// changes nothing.
void refresh(const std::string& modelId, std::stop_token stop = {});

}

}
