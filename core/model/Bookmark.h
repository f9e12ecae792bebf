#pragma once

#include "platform/base/Field.h"
#include "platform/base/UUID.h"

#include <cstdint>
#include <optional>
#include <string>

namespace murbo {

/// A marked moment or stretch of a source.
struct Bookmark {
    UUID id = UUID::make();
    std::int64_t number = 0;
    UUID source;
    double at = 0; ///< seconds on the source
    std::optional<double> end;
    std::optional<std::string> note;

    std::string tag() const; ///< "B1"

    bool operator==(const Bookmark&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("id", &Bookmark::id), field("number", &Bookmark::number),
                     field("source", &Bookmark::source), field("at", &Bookmark::at),
                     field("end", &Bookmark::end), field("note", &Bookmark::note));
    }
};

}
