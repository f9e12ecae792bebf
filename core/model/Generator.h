#pragma once

#include "core/model/Values.h"
#include "platform/base/Field.h"

#include <cstdint>
#include <optional>
#include <string>

namespace murbo {

/// The playbook that draws a generated cut.
struct Generator {
    std::string playbook; ///< id
    std::int64_t version = 1;
    std::optional<Values> values;

    bool operator==(const Generator&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("playbook", &Generator::playbook), field("version", &Generator::version),
                     field("values", &Generator::values));
    }
};

}
