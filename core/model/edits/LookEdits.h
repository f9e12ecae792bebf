#pragma once

#include "core/model/Video.h"

#include <optional>

namespace murbo {

/// The verbs on what lies over a video's cuts, by video time in seconds. An id that names nothing there
/// changes nothing.
namespace LookEdits {

/// Seconds that a sound without a length of its own counts as where it is laid out.
inline constexpr double unknownSound = 1.2;

/// Splits an overlay in two at a time; each part plays the playbook for itself. The right part's new id.
/// Nothing where it is not on then, or a part would be too short.
std::optional<UUID> splitOverlay(Video& video, const UUID& overlay, double time);
/// Splits a sound or a song: the right part goes on in its file where the left one ends.
std::optional<UUID> splitSound(Video& video, const UUID& sound, double time);

}

}
