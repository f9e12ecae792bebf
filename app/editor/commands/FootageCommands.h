#pragma once

#include "app/editor/commands/EditorCommand.h"
#include "app/editor/commands/Named.h"
#include "app/editor/commands/WordCorrection.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// What a person does to clips and lines, and the marks on what the source player holds.
namespace FootageCommands {

/// The clips that a command acts on: those picked, else the held one.
std::vector<UUID> clipsActedOn(const Editor& editor);

/// 1 is a favourite, -1 a reject; 0 or none clears the rating.
void rate(Editor& editor, const std::vector<UUID>& clips, std::optional<std::int64_t> value);
/// What a window asks before it renames a clip.
struct RenameQuestion {
    std::string title;
    std::optional<std::string> text;
    std::string name;
    bool operator==(const RenameQuestion&) const = default;
    static constexpr auto fields(auto visit) {
        return visit(field("title", &RenameQuestion::title), field("text", &RenameQuestion::text),
                     field("name", &RenameQuestion::name));
    }
};
RenameQuestion askToRename(const Editor& editor, const UUID& clip);
/// Gives a clip a name of the user's own; a blank one takes it away.
void renameClip(Editor& editor, const UUID& clip, const std::string& to);
/// Corrects what a line says; its times stay.
void correct(Editor& editor, const UUID& line, const UUID& source, const std::string& to);
/// Puts a word, or some in a row, right wherever else it was heard.
void correctEverywhere(Editor& editor, const WordCorrection& word);

/// Marks the range from the first of these lines to the last.
void pick(Editor& editor, const std::vector<Named::FoundLine>& lines);
void markStart(Editor& editor);
void markEnd(Editor& editor);
void markClip(Editor& editor);
/// Lets go of the range, of all picks and of the tool.
void clear(Editor& editor);
/// Puts a tag or another name onto the clipboard.
void copyID(Editor& editor, const std::string& text);

CommandList table();

}

}
