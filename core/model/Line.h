#pragma once

#include "platform/base/Field.h"
#include "platform/base/UUID.h"

#include <optional>
#include <string>

namespace murbo {

/// One spoken line.
struct Line {
    UUID id = UUID::make(); ///< captions point at it
    double start = 0;       ///< seconds on the source
    double end = 0;
    std::string text;
    std::optional<bool> gone; ///< stays in the transcript and keeps its tag, but no longer counts as said

    bool isGone() const { return gone.value_or(false); }
    /// The moment that decides which clip the line belongs to, seconds on the source.
    double middle() const { return (start + end) * 0.5; }

    bool operator==(const Line&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("id", &Line::id), field("start", &Line::start), field("end", &Line::end),
                     field("text", &Line::text), field("gone", &Line::gone));
    }
};

}
