#include "core/playbooks/ParameterName.h"
#include "core/playbooks/Playbook.h"
#include "platform/base/Numbers.h"
#include "platform/base/Text.h"

namespace murbo {
namespace {

/// Brackets and signs nest at most this deep: no sane expression does, and each level is a call.
constexpr int deepest = 200;
/// Bytes of an expression, and of a value in one: they are read again for every frame.
constexpr std::size_t longest = 1000;

double parameter(const Values& values, const std::string& name, double otherwise) {
    const auto found = values.find(name);
    if (found == values.end() || found->second.size() > longest) return otherwise;
    return Numbers::parse(found->second).value_or(otherwise);
}

/// Reads by recursive descent; a failure at any depth is a failure of the whole.
class Expression {
public:
    Expression(std::string_view given, const Values& filled, bool isStrict)
        : text(given), values(filled), strict(isStrict) {}

    std::optional<double> value() {
        const auto result = sum();
        return at == text.size() ? result : std::nullopt;
    }

private:
    using Value = std::optional<double>;

    bool take(char c) {
        if (at >= text.size() || text[at] != c) return false;
        ++at;
        return true;
    }

    Value sum() {
        Value left = product();
        while (left) {
            const bool plus = take('+');
            if (!plus && !take('-')) break;
            const Value right = product();
            if (!right) return right;
            left = plus ? *left + *right : *left - *right;
        }
        return left;
    }

    Value product() {
        Value left = number();
        while (left) {
            const bool times = take('*');
            if (!times && !take('/')) break;
            const Value right = number();
            if (!right) return right;
            left = times ? *left * *right : *left / (*right == 0 ? 1 : *right);
        }
        return left;
    }

    Value number() {
        if (++depth > deepest) return std::nullopt;
        const Value value = bare();
        --depth;
        return value;
    }

    Value bare() {
        if (take('(')) return bracket();
        if (take('-')) return negated();
        if (take('$')) return named();
        return digits();
    }

    Value bracket() {
        const Value inner = sum();
        return take(')') ? inner : std::nullopt;
    }

    Value negated() {
        const Value inner = number();
        if (!inner) return inner;
        return -*inner;
    }

    Value named() {
        const auto name = text.substr(at, ParameterName::length(text.substr(at)));
        if (name.empty()) return std::nullopt;
        at += name.size();
        const double none = std::numeric_limits<double>::quiet_NaN();
        const double value = parameter(values, std::string(name), strict ? none : 1);
        return std::isnan(value) ? std::nullopt : Value(value);
    }

    Value digits() {
        const std::size_t from = at;
        at = std::min(text.find_first_not_of("0123456789.", at), text.size());
        return Numbers::parse(text.substr(from, at - from));
    }

    std::string_view text;
    const Values& values;
    bool strict;
    std::size_t at = 0;
    int depth = 0;
};

/// The name in "$name", where that is the whole text.
std::optional<std::string> wholeParameter(std::string_view text) {
    if (!text.starts_with('$')) return std::nullopt;
    const auto name = text.substr(1);
    if (ParameterName::length(name) != name.size()) return std::nullopt;
    return std::string(name);
}

}

std::optional<double> Playbook::evaluate(std::string_view text, const Values& values, bool strict) {
    if (text.size() > longest) return std::nullopt;
    return Expression(Text::withoutWhiteSpace(text), values, strict).value();
}

std::optional<Playbook::Num> Playbook::Num::parse(const std::string& text) {
    if (text.size() > longest) return std::nullopt;
    if (wholeParameter(text) || evaluate(text, {}, false)) return Num(text);
    return std::nullopt;
}

std::optional<double> Playbook::Num::value(const Values& values) const {
    if (const auto* number = std::get_if<double>(&form)) return *number;
    const auto& text = std::get<std::string>(form);
    const auto name = wholeParameter(text);
    if (!name) return evaluate(text, values, true);
    const double value = parameter(values, *name, std::numeric_limits<double>::quiet_NaN());
    return std::isnan(value) ? std::nullopt : std::optional(value);
}

double Playbook::naturalLength() const {
    constexpr double usual = 3;
    constexpr double shortest = 0.2;
    return std::max(length.value_or(usual), shortest);
}

namespace {

double part(const std::optional<double>& seconds, double whole) {
    constexpr double usual = 0.3;
    return std::min(seconds.value_or(usual), whole / 2);
}

}

double Playbook::enterLength() const {
    return part(timing ? timing->enter : std::nullopt, naturalLength());
}

double Playbook::exitLength() const {
    return part(timing ? timing->exit : std::nullopt, naturalLength());
}

}
