#pragma once

#include "app/desktop/inspector/InspectorRow.h"
#include "core/model/Framing.h"
#include "core/model/Shot.h"

namespace murbo {

class BookShelf;

/// What can be set about a shot.
namespace ShotRows {

/// `upright` is whether the video is higher than wide: layouts are for such alone.
InspectorRowList of(const Shot& shot, const Framing& framing, bool upright, BookShelf& shelf);

/// Sets what a row says; no value puts it back to its standard. "layout" takes the raw text of a layout or
/// the id of a playbook.
void set(Shot& shot, BookShelf& shelf, const std::string& row, const QVariant& value);

}

}
