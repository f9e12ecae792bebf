#pragma once

#include "app/desktop/inspector/InspectorRow.h"
#include "core/model/Overlay.h"

namespace murbo {

class BookShelf;

/// What can be set about an overlay.
namespace OverlayRows {

InspectorRowList of(const Overlay& overlay, BookShelf& shelf);

/// Sets what a row says; no value puts it back to its standard.
void set(Overlay& overlay, BookShelf& shelf, const std::string& row, const QVariant& value);

}

}
