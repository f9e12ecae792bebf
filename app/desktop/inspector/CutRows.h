#pragma once

#include "app/desktop/inspector/InspectorRow.h"
#include "core/model/Cut.h"
#include "core/model/Source.h"

namespace murbo {

class BookShelf;

/// What can be set about a cut. Its ends are set by trimming.
namespace CutRows {

/// `source` is null for a generated cut, and for one whose source is gone; `facts` are its file's in words.
InspectorRowList of(const Cut& cut, const Source* source, const QString& facts, BookShelf& shelf);

/// Sets what a row says; no value puts it back to its standard.
void set(Cut& cut, BookShelf& shelf, const std::string& row, const QVariant& value);

/// Whether a row is an end of the cut: "in", "out" or "length".
bool isEnd(const std::string& row);

}

}
