#include "core/ai/Quote.h"

#include "core/ai/Prices.h"
#include "core/ai/Spending.h"

namespace murbo {

Quote Quote::of(Pricing::Asked what, Ask::Model model, const std::function<double(const Price&)>& estimate,
                bool fresh, const std::stop_token& stop) {
    Quote quote;
    quote.modelId = Ask::modelId(model);
    if (fresh) Prices::refresh(quote.modelId, stop);
    const auto price = Prices::price(quote.modelId);
    const auto dollars = price ? std::optional(estimate(*price)) : std::nullopt;
    quote.text = Pricing::confirmation(what, dollars, quote.modelId);
    quote.refusal = Spending::refusal(dollars);
    return quote;
}

}
