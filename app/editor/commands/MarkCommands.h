#pragma once

#include "app/editor/commands/EditorCommand.h"

#include <string>

namespace murbo {

/// Marking footage while looking through it: clips, bookmarks, notes.
namespace MarkCommands {

/// Makes a clip round the source player's time, or grows one, and holds it.
void dropClipMark(Editor& editor);
/// Marks the moment, or the marked range.
void dropBookmark(Editor& editor);
void removeBookmark(Editor& editor, const UUID& bookmark);
/// A note on the marked range.
void addNote(Editor& editor, const std::string& text);

CommandList table();

}

}
