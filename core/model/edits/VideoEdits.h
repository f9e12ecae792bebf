#pragma once

#include "core/model/Stretch.h"
#include "core/model/Video.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace murbo {

/// The verbs on a video's cuts, shared by everybody who edits. Video time is time along the finished video,
/// source time along a source, both in seconds. An id that names no cut changes nothing.
namespace VideoEdits {

/// The position of the cut with that id.
std::optional<std::size_t> index(const Video& video, const UUID& cut);
/// The position of the cut that plays at a video time.
std::optional<std::size_t> indexAt(const Video& video, double time);
/// Where a drop at a video time lands: before the first cut whose middle lies after it, or at the end.
std::size_t place(const Video& video, double time);
/// The video time at which a cut starts.
std::optional<double> start(const Video& video, const UUID& cut);
/// The video times of all seams: the start of every cut, and the end of the last.
std::vector<double> edits(const Video& video);

/// Puts a cut before the one at `at`, clamped into the list; with no position at the end. The cut's id.
UUID insert(Video& video, Cut cut, std::optional<std::ptrdiff_t> at = std::nullopt);
/// Puts a cut in at a video time. One that plays there is split, unless the time is at one of its ends.
UUID insertAt(Video& video, Cut cut, double time);

/// Splits a cut at a source time; the right part's new id. Nothing where a part would be too short.
std::optional<UUID> split(Video& video, const UUID& cut, double sourceTime);
/// Splits the cut that plays at a video time.
std::optional<UUID> splitAt(Video& video, double time);

/// Moves an end of a cut to a source time, within the source and never nearer than the shortest cut.
void trimStart(Video& video, const UUID& cut, double to);
void trimEnd(Video& video, const UUID& cut, double to, double sourceLength);
/// Shows another stretch of the source, of the same length, from `toStart`; kept within the source.
void slip(Video& video, const UUID& cut, double toStart, double sourceLength);
/// Moves the seam after a cut: its end to a source time, and the start of the next one as far along that
/// one's own source. Kept within both sources, and neither cut gets shorter than the shortest. Nothing after
/// the last cut.
void roll(Video& video, const UUID& cut, double to, double sourceLength);

/// Puts a cut before the one that now stands at `to`.
void move(Video& video, const UUID& cut, std::ptrdiff_t to);
/// Removes a cut. The look stays: it is tied to the footage.
void remove(Video& video, const UUID& cut);

/// Takes stretches of the source out of a cut; what is left between them counts from `shortest` seconds on.
/// The seconds removed; 0 where nothing would be left, and then nothing changes.
double takeOut(Video& video, std::vector<Stretch> stretches, const UUID& cut, double shortest);

/// Turns the sound of these cuts off; on, where it is off for all of them.
void toggleMute(Video& video, const std::vector<UUID>& cuts);

}

}
