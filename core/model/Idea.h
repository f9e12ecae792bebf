#pragma once

#include "core/model/Cut.h"
#include "core/model/Run.h"
#include "platform/base/Field.h"
#include "platform/base/UUID.h"

#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// A proposed video.
struct Idea {
    UUID id = UUID::make();
    std::string title;
    std::string hook;
    std::string why;
    std::optional<std::string> format;
    std::vector<Cut> cuts;
    std::optional<std::string> instruction; ///< what led to it
    std::optional<Run> run;                 ///< who made it

    double length() const; ///< seconds

    bool operator==(const Idea&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("id", &Idea::id), field("title", &Idea::title), field("hook", &Idea::hook),
                     field("why", &Idea::why), field("format", &Idea::format), field("cuts", &Idea::cuts),
                     field("instruction", &Idea::instruction), field("run", &Idea::run));
    }
};

}
