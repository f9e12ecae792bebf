#pragma once

#include "app/desktop/inspector/InspectorRow.h"
#include "app/editor/Pick.h"

namespace murbo {

class BookShelf;
class Editor;
class FileFacts;
struct Video;

/// What can be set about what is picked on the timeline, whatever kinds it is of.
namespace PickRows {

/// What rows are made with.
struct RowMaterial {
    const Editor& editor;
    BookShelf& shelf;
    FileFacts& facts;
};

/// The rows of one pick; none where it is gone.
InspectorRowList of(const Pick& pick, const RowMaterial& sources);

/// The rows that all of several picks have. Where their values differ a row is mixed.
InspectorRowList common(const std::vector<Pick>& picks, const RowMaterial& sources);

/// Sets what a row says on a pick of a video; nothing where the pick is gone. No value puts it back to its
/// standard.
void set(Video& video, const Pick& pick, BookShelf& shelf, const std::string& row, const QVariant& value);

}

}
