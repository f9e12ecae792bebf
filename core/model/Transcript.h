#pragma once

#include "platform/base/Field.h"
#include "platform/base/Shared.h"
#include "platform/base/UUID.h"

#include <optional>
#include <string>
#include <tuple>

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
    static constexpr auto fields() {
        return std::tuple{field("id", &Line::id), field("start", &Line::start), field("end", &Line::end),
                          field("text", &Line::text), field("gone", &Line::gone)};
    }
};
static_assert(Record<Line>);

/// A note on a stretch of a source, for the AI work and the reader rather than something said.
struct Note {
    UUID id = UUID::make();
    double start = 0; ///< seconds on the source
    double end = 0;
    std::string text;

    double middle() const { return (start + end) * 0.5; }

    bool operator==(const Note&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("id", &Note::id), field("start", &Note::start), field("end", &Note::end),
                          field("text", &Note::text)};
    }
};
static_assert(Record<Note>);

/// What is said on one source.
struct Transcript {
    List<Line> lines;
    List<Note> notes;

    bool operator==(const Transcript&) const = default;
    static constexpr auto fields() {
        return std::tuple{field("lines", &Transcript::lines), field("notes", &Transcript::notes)};
    }
};
static_assert(Record<Transcript>);

}
