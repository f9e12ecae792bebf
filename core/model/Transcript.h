#pragma once

#include "core/model/Line.h"
#include "core/model/Note.h"
#include "platform/base/Field.h"
#include "platform/base/Shared.h"

namespace murbo {

/// What is said on one source.
struct Transcript {
    List<Line> lines;
    List<Note> notes;

    bool operator==(const Transcript&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("lines", &Transcript::lines), field("notes", &Transcript::notes));
    }
};

}
