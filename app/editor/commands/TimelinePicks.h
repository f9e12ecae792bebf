#pragma once

#include "app/editor/commands/EditorCommand.h"
#include "app/editor/commands/TimelineRow.h"

#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace murbo {

/// Which blocks are picked across the rows of the timeline, and what a drag of one is drawn to.
namespace TimelinePicks {

/// The keys that are held while the mouse is used.
struct Modifiers {
    bool shift = false;
    bool command = false;
    bool option = false;
};

/// All picks, the main one last.
std::vector<Pick> all(const Editor& editor);
bool isPicked(const Editor& editor, const Pick& pick);
void set(Editor& editor, std::vector<Pick> picks);
void click(Editor& editor, const Pick& pick, const Modifiers& held);

/// What a rubber band from one video time to another catches in these rows.
std::vector<Pick> caught(const Editor& editor, double from, double to, const std::set<TimelineRow>& rows);

/// The picks as one says them to a model; empty without a video.
std::string inWords(const Editor& editor);

/// A dragged video time, drawn to the edges near it. `scale` is points a second; `except` and the line
/// `caption` are what is dragged.
double snapped(const Editor& editor, double time, double scale, const std::optional<UUID>& except,
               const std::optional<UUID>& caption, const Modifiers& held);
/// A trimmed edge on a source, drawn to where lines begin and end.
double snappedEdge(const Editor& editor, double time, const UUID& source, double scale,
                   const Modifiers& held);

/// The keys that are held now; scripts set them.
Modifiers& held();

CommandList table();

}

}
