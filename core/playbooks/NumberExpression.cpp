#include "core/playbooks/NumberExpression.h"

#include "core/playbooks/ParameterName.h"
#include "platform/base/Numbers.h"
#include "platform/base/Text.h"

namespace murbo::NumberExpression {
namespace {

/// Brackets and signs nest at most this deep: no sane expression does, and each level is a call.
constexpr int deepest = 200;

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
        const auto value = parameter(std::string(name), values);
        return value || strict ? value : 1;
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

}

std::optional<double> value(std::string_view text, const Values& values, bool strict) {
    if (text.size() > maxBytes) return std::nullopt;
    return Expression(Text::withoutWhiteSpace(text), values, strict).value();
}

std::optional<double> parameter(const std::string& name, const Values& values) {
    const auto found = values.find(name);
    if (found == values.end() || found->second.size() > maxBytes) return std::nullopt;
    return Numbers::parse(found->second);
}

}
