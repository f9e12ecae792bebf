#include "core/playbooks/Book.h"

#include "platform/base/Files.h"

namespace murbo {

Values Book::values(const std::optional<Values>& overrides) const {
    Values values = overrides.value_or(Values{});
    if (!playbook.params) return values;
    for (const auto& [name, param] : *playbook.params)
        if (param.value) values.try_emplace(name, *param.value);
    return values;
}

std::optional<std::filesystem::path> Book::file(const std::string& name) const {
    if (!folder || name.empty()) return std::nullopt;
    return Files::inside(*folder, name);
}

}
