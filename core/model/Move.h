#pragma once

#include "core/model/Placement.h"
#include "platform/base/Field.h"

#include <optional>
#include <string>

namespace murbo {

/// A way from one placement to another over the thing's time on screen, with its entrance and exit by name.
struct Move {
    std::optional<Placement> from;
    std::optional<Placement> to;
    std::optional<std::string> ease;
    std::optional<std::string> enter;
    std::optional<std::string> exit;

    bool operator==(const Move&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("from", &Move::from), field("to", &Move::to), field("ease", &Move::ease),
                     field("enter", &Move::enter), field("exit", &Move::exit));
    }
};

}
