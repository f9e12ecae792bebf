#include "core/ai/Pricing.h"

#include "core/ai/Reply.h"
#include "platform/base/Numbers.h"

#include <cmath>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace murbo {
namespace {

using nlohmann::json;

constexpr double shownInCents = 0.005; // dollars; less rounds to nothing
constexpr std::int64_t replied = 1500; // tokens of an answer, beside what was thought
constexpr double perPicture = 800;     // tokens of a picture of 768 pixels, as models count them
constexpr const char* readingOn =
    " Each clip it asks to read costs a little more; Activity says what it came to.";

std::optional<double> decimal(const json& value) {
    return value.is_string() ? Numbers::parse(value.get<std::string>()) : std::nullopt;
}

std::optional<Price> price(const json& pricing) {
    const auto input = decimal(Reply::member(pricing, "prompt"));
    const auto output = decimal(Reply::member(pricing, "completion"));
    return input && output ? std::optional(Price{*input, *output}) : std::nullopt;
}

std::string capitalised(std::string words) {
    if (!words.empty() && words.front() >= 'a' && words.front() <= 'z')
        words.front() = static_cast<char>(words.front() - 'a' + 'A');
    return words;
}

}

double Pricing::estimate(const Price& price, const Ask& ask) {
    double pictures = 0;
    for (const auto& message : ask.messages) pictures += static_cast<double>(message.pictures.size());
    return price.estimate(ask.text(), ask.thinking + replied) + price.input * pictures * perPicture;
}

std::optional<double> Pricing::estimate(const std::optional<Price>& price, const Ask& ask) {
    return price ? std::optional(estimate(*price, ask)) : std::nullopt;
}

std::string Pricing::about(std::optional<double> dollars) {
    if (!dollars) return "";
    if (*dollars < shownInCents) return "under 1¢";
    if (*dollars < 1) return fmt::format("about {:.0f}¢", std::round(*dollars * 100));
    return fmt::format("about ${:.2f}", *dollars);
}

std::map<std::string, Price> Pricing::prices(std::string_view fromModels) {
    std::map<std::string, Price> found;
    const auto list = json::parse(fromModels, nullptr, false);
    const auto& models = Reply::member(list, "data");
    if (!models.is_array()) return found;
    for (const auto& model : models) {
        const auto& id = Reply::member(model, "id");
        if (!id.is_string()) continue;
        if (const auto known = price(Reply::member(model, "pricing")))
            found.insert_or_assign(id.get<std::string>(), *known);
    }
    return found;
}

std::string Pricing::confirmation(Asked what, std::optional<double> dollars, const std::string& modelId) {
    const std::string more = what == Asked::reading ? readingOn : "";
    if (dollars)
        return fmt::format("{}{}, from your OpenRouter key, on {}.{}", capitalised(about(dollars)),
                           what == Asked::reading ? " to start" : "", modelId, more);
    const std::string from = fmt::format("From your OpenRouter key, on {}.", modelId);
    if (what == Asked::describing) return from + " Its cost is not known yet; Activity will say what it was.";
    return from + more;
}

}
