#include "core/playbooks/PlaybookCodec.h"

#include "core/playbooks/PlaybookCheck.h"
#include "platform/base/Problem.h"

#include <fmt/format.h>

namespace murbo {

template <>
Playbook::Num Codec::read<Playbook::Num>(const JsonValue& value) {
    if (value.isNumber()) return value.number();
    const auto num = value.isText() ? Playbook::Num::parse(value.text()) : std::nullopt;
    if (!num) value.fail("a number, a $parameter, or a sum of them like 1-$split");
    return *num;
}

template <>
void Codec::write<Playbook::Num>(JsonWriter& writer, const Playbook::Num& num) {
    std::visit([&](const auto& form) { write(writer, form); }, num.json());
}

Playbook Playbook::decode(std::string_view text) {
    PlaybookCheck::check(text);
    try {
        return Codec::decode<Playbook>(text);
    } catch (const JsonProblem& problem) {
        const auto way = problem.way.empty() ? "the top" : problem.way;
        throw Problem(fmt::format("At {}: {}", way, problem.missing ? "this is needed." : problem.fault));
    }
}

}
