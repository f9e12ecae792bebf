#pragma once

#include "core/ai/Ask.h"
#include "core/ai/Price.h"
#include "core/ai/Pricing.h"

#include <functional>
#include <optional>
#include <stop_token>
#include <string>

namespace murbo {

/// What the owner is told before a paid run.
struct Quote {
    std::string modelId;
    std::string text;                   ///< of the question whether to go on
    std::optional<std::string> refusal; ///< why the run may not start

    /// Works one out for a run. `estimate` gives the dollars at a price; it is not asked where the price is
    /// not known. With `fresh` a price list that is old is fetched anew, and that may wait for the network.
    static Quote of(Pricing::Asked what, Ask::Model model,
                    const std::function<double(const Price&)>& estimate, bool fresh,
                    const std::stop_token& stop = {});
};

}
