#pragma once

#include "app/desktop/inspector/InspectorRow.h"
#include "core/model/Look.h"

namespace murbo {

/// What can be set about a caption, or a piece of one.
namespace CaptionRows {

/// `said` is the whole line; without `piece` it is about that, else about the piece at that place.
InspectorRowList of(const Look& look, const UUID& line, const std::optional<std::int64_t>& piece,
                    const QString& said);

/// Sets what a row says; no value puts it back to its standard.
void set(Look& look, const UUID& line, const std::optional<std::int64_t>& piece, const std::string& row,
         const QVariant& value);

}

}
