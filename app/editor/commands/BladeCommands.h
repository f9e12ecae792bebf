#pragma once

#include "app/editor/Pick.h"

#include <optional>
#include <vector>

namespace murbo {

class Editor;

/// The blade on more than the cuts alone.
namespace BladeCommands {

/// Splits at a video time those of the blocks that lie there, as one step: cuts, overlays, sounds and songs.
/// Others stay whole, and so do those too near to an end. Whether any was split.
bool blade(Editor& editor, const std::vector<Pick>& blocks, double at);

/// Splits what is picked and lies at a time; where nothing of that does, all that lies there. Without a time
/// at the playhead, and a toast says so where nothing was split.
void bladeAll(Editor& editor, std::optional<double> at);

}

}
