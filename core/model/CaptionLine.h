#pragma once

#include "core/model/Move.h"
#include "platform/base/Field.h"
#include "platform/base/UUID.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// What was changed by hand on one transcript line. The text itself stays in the transcript.
struct CaptionLine {
    /// A part of a line broken by hand.
    struct Piece {
        std::string text;
        std::optional<double> until; ///< share of the line's time at which the piece ends
        std::optional<bool> big;
        std::optional<bool> hidden;
        std::optional<std::vector<std::int64_t>> stress; ///< word indexes
        std::optional<Move> move;

        bool operator==(const Piece&) const = default;
        static constexpr auto fields(auto visit) {
            return visit(field("text", &Piece::text), field("until", &Piece::until),
                         field("big", &Piece::big), field("hidden", &Piece::hidden),
                         field("stress", &Piece::stress), field("move", &Piece::move));
        }
    };

    UUID line;
    std::optional<std::vector<Piece>> pieces;
    std::optional<bool> big;
    std::optional<bool> hidden;
    std::optional<std::vector<std::int64_t>> stress; ///< word indexes
    std::optional<Move> move;
    std::optional<double> start; ///< seconds on the source, retimed by hand
    std::optional<double> end;

    bool operator==(const CaptionLine&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("line", &CaptionLine::line), field("pieces", &CaptionLine::pieces),
                     field("big", &CaptionLine::big), field("hidden", &CaptionLine::hidden),
                     field("stress", &CaptionLine::stress), field("move", &CaptionLine::move),
                     field("start", &CaptionLine::start), field("end", &CaptionLine::end));
    }
};

}
