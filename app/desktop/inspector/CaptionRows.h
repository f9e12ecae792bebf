#pragma once

#include "app/desktop/inspector/InspectorRow.h"
#include "core/model/Look.h"

namespace murbo {

/// What can be set about a caption, or a piece of one.
namespace CaptionRows {

/// A caption as it stands, of a line or of a piece of one.
InspectorRowList of(const QString& said, bool big, bool hidden);

/// Sets what a row says; no value puts it back to its standard.
void set(Look& look, const UUID& line, const std::optional<std::int64_t>& piece, const std::string& row,
         const QVariant& value);

}

}
