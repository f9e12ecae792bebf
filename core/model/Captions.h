#pragma once

#include "core/model/CaptionLine.h"
#include "core/model/CaptionStyle.h"
#include "platform/base/Field.h"
#include "platform/base/Shared.h"
#include "platform/base/UUID.h"

#include <optional>

namespace murbo {

/// The captions of one video: on or off, their style, and the lines changed by hand.
struct Captions {
    bool on = true;
    std::optional<CaptionStyle> style; ///< over the project's
    List<CaptionLine> lines;

    /// The first entry for that transcript line, or null.
    const CaptionLine* line(const UUID& id) const;

    bool operator==(const Captions&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("on", &Captions::on), field("style", &Captions::style),
                     field("lines", &Captions::lines));
    }
};

}
