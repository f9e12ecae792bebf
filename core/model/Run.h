#pragma once

#include "platform/base/Field.h"

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace murbo {

/// The stamp left on a clip or a video: when an AI task last touched it, for whom, on which model.
struct Run {
    enum class By { app, mcp };

    double at = 0; ///< seconds since 2001-01-01 00:00:00 UTC
    By by = By::app;
    std::optional<std::string> with; ///< the model's id

    bool operator==(const Run&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("at", &Run::at), field("by", &Run::by), field("with", &Run::with));
    }
};
constexpr auto rawTexts(Run::By) {
    return std::array<std::string_view, 2>{"app", "mcp"};
}

/// The last run of each task, by the task's name.
using Runs = std::map<std::string, Run>;

}
