#pragma once

#include "platform/base/UUID.h"

#include <QString>

namespace murbo {

/// One line or note as the transcript shows it.
struct TranscriptRow {
    UUID id;  ///< of the line or note
    UUID cut; ///< that plays it, in the transcript of a video; else of no meaning
    UUID source;
    QString tag;
    QString text;      ///< in one block: nothing in it ends a line
    bool whole = true; ///< else it is too long to be shown to its end, and is not corrected here
    bool note = false; ///< something seen rather than said
    bool used = false; ///< the open video plays it
    double start = 0;  ///< seconds on the source
    double end = 0;
    double from = 0; ///< the same on the player's clock that the transcript follows
    double to = 0;
    double quiet = 0; ///< seconds of silence before it; 0 for none worth showing

    double middle() const { return (start + end) / 2; }
    bool isSameAs(const TranscriptRow& other) const { return id == other.id && cut == other.cut; }
    bool operator==(const TranscriptRow&) const = default;
};

}
