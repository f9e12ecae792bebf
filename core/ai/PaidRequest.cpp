#include "core/ai/PaidRequest.h"

#include "core/ai/Prices.h"
#include "core/ai/Pricing.h"
#include "core/ai/Spending.h"
#include "core/model/package/Activity.h"
#include "platform/base/Cancelled.h"

#include <chrono>

namespace murbo {
namespace {

void end(Activity& entry, const char* state, const std::optional<std::filesystem::path>& package) {
    entry.state = state;
    entry.ended = std::chrono::system_clock::now();
    if (package) Activity::log(entry, *package);
}

/// A conversation may pass the limit on its way.
void holdToLimit(const PaidRequest& request) {
    const auto estimate = Pricing::estimate(Prices::price(request.modelId), request.ask);
    if (const auto refusal = Spending::refusal(estimate)) throw Problem(*refusal);
}

}

OpenRouter::Answer PaidRequest::send(const std::string& key, const std::stop_token& stop) const {
    Activity entry;
    entry.kind = "ask";
    entry.title = title;
    entry.engine = modelId;
    entry.started = std::chrono::system_clock::now();
    entry.request = text;
    try {
        holdToLimit(*this);
        auto answer = OpenRouter(key).send(ask, modelId, stop);
        Spending::add(answer.cost);
        entry.cost = answer.cost;
        entry.reply = answer.text;
        end(entry, "done", package);
        return answer;
    } catch (const std::exception& error) {
        entry.error = error.what();
        end(entry, dynamic_cast<const Cancelled*>(&error) ? "stopped" : "failed", package);
        throw;
    }
}

}
