#include "core/ai/Prices.h"

#include "core/ai/OpenRouter.h"
#include "platform/base/Codec.h"
#include "platform/base/Data.h"
#include "platform/base/Problem.h"
#include "platform/store/SettingsStore.h"

#include <chrono>
#include <map>

namespace murbo {
namespace {

constexpr const char* listKey = "prices";
constexpr const char* fetchedKey = "pricesFetched";
constexpr double keptFor = 86'400; // seconds

double now() {
    return std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
}

bool isOld() {
    const auto fetched = SettingsStore::standard().number(fetchedKey);
    return !fetched || now() - *fetched > keptFor;
}

}

std::optional<Price> Prices::price(const std::string& modelId) try {
    const auto kept = SettingsStore::standard().data(listKey);
    if (!kept) return std::nullopt;
    const auto list = Codec::decode<std::map<std::string, Price>>(kept->bytes);
    const auto found = list.find(modelId);
    return found == list.end() ? std::nullopt : std::optional(found->second);
} catch (const Problem&) {
    return std::nullopt;
}

void Prices::refresh(const std::string& modelId, std::stop_token stop) try {
    if (!isOld() && price(modelId)) return;
    const auto fetched = OpenRouter::prices(stop);
    // An answer without a price is no list of prices: the kept one is better.
    if (fetched.empty()) return;
    SettingsStore::standard().set(listKey, Data{Codec::encode(fetched, JsonWriter::Layout::compact)});
    SettingsStore::standard().set(fetchedKey, now());
} catch (const Problem&) {
}

}
