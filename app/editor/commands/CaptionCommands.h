#pragma once

#include "app/editor/commands/EditorCommand.h"
#include "core/model/Look.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// What is changed on captions by hand, line by line. The words stay in the transcript.
namespace CaptionCommands {

using LineChange = std::function<void(CaptionLine&)>;

/// Changes a line's entry in a look, made where there is none.
void change(Look& look, const UUID& line, const LineChange& change);
/// Hides a piece of a line, or all of it.
void hide(Look& look, const UUID& line, const std::optional<std::int64_t>& piece);

/// Moves the borders between the pieces of a line: shares of its time, ascending, one fewer than texts.
void retimePieces(Editor& editor, const UUID& line, const std::vector<std::string>& texts,
                  const std::vector<double>& meets);
/// Breaks a line into texts; a single one joins it again.
void breakCaption(Editor& editor, const UUID& line, const std::vector<std::string>& texts);

CommandList table();

}

}
