#include "core/playbooks/Playbook.h"

#include "core/playbooks/NumberExpression.h"

#include <algorithm>

namespace murbo {
namespace {

/// What an entrance or exit takes of the whole.
double part(const std::optional<double>& seconds, double whole) {
    constexpr double usual = 0.3;
    return std::min(seconds.value_or(usual), whole / 2);
}

}

std::optional<double> Playbook::evaluate(std::string_view text, const Values& values, bool strict) {
    return NumberExpression::value(text, values, strict);
}

std::optional<Playbook::Num> Playbook::Num::parse(const std::string& text) {
    if (text.size() > NumberExpression::maxBytes) return std::nullopt;
    if (!evaluate(text, {}, false)) return std::nullopt;
    return Num(text);
}

std::optional<double> Playbook::Num::value(const Values& values) const {
    if (const auto* number = std::get_if<double>(&form)) return *number;
    return evaluate(std::get<std::string>(form), values, true);
}

double Playbook::naturalLength() const {
    constexpr double usual = 3;
    constexpr double shortest = 0.2;
    return std::max(length.value_or(usual), shortest);
}

double Playbook::enterLength() const {
    return part(timing ? timing->enter : std::nullopt, naturalLength());
}

double Playbook::exitLength() const {
    return part(timing ? timing->exit : std::nullopt, naturalLength());
}

}
