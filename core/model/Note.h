#pragma once

#include "platform/base/Field.h"
#include "platform/base/UUID.h"

#include <string>

namespace murbo {

/// A note on a stretch of a source, for the AI work and the reader rather than something said.
struct Note {
    UUID id = UUID::make();
    double start = 0; ///< seconds on the source
    double end = 0;
    std::string text;

    double middle() const { return (start + end) * 0.5; }

    bool operator==(const Note&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("id", &Note::id), field("start", &Note::start), field("end", &Note::end),
                     field("text", &Note::text));
    }
};

}
