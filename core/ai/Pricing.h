#pragma once

#include "core/ai/Ask.h"
#include "core/ai/Price.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace murbo {

/// Prices in words, and out of OpenRouter's list of models.
namespace Pricing {

/// About what a request costs, in dollars; nothing where its model's price is not known.
double estimate(const Price& price, const Ask& ask);
std::optional<double> estimate(const std::optional<Price>& price, const Ask& ask);

/// An estimate in words: "under 1¢", "about 12¢", "about $1.20"; empty where there is none.
std::string about(std::optional<double> dollars);

/// The prices in a list of models, by the models' ids. What can't be read is left out.
std::map<std::string, Price> prices(std::string_view fromModels);

/// What a paid run asks its owner before it starts.
enum class Asked { request, reading, describing };

/// The text of that question. `dollars` is the estimate, where the model's price is known.
std::string confirmation(Asked what, std::optional<double> dollars, const std::string& modelId);

}

}
