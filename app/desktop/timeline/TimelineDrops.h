#pragma once

#include "app/desktop/models/MediaArrivals.h"
#include "app/desktop/timeline/PartedRow.h"
#include "app/desktop/timeline/TimelineLayout.h"

#include <filesystem>
#include <vector>

namespace murbo {

class Editor;

/// What is let go over the timeline that comes from elsewhere: clips out of the browser, files out of
/// another program.
namespace TimelineDrops {

/// The seam of the video at which a cut let go at that time would land, in video seconds.
double seam(const Editor& editor, double time);

/// Where what `clips` takes would land among the cuts, and the seconds that it has; nothing where there is
/// none.
std::optional<PartedRow::Landing> landing(const Editor& editor, double time);
/// The picked clips, or what the source viewer offers, between the cuts. Whether there was any.
bool clips(Editor& editor, double time);

struct DroppedMedia {
    std::vector<ArrivingFile> arriving;
    std::vector<std::filesystem::path> left; ///< nothing for the timeline
};
/// Files: sounds go to the sounds or, on its row, to the music; pictures are laid over the video, and so are
/// movies on the rows for what is laid over.
DroppedMedia files(const Editor& editor, const std::vector<std::filesystem::path>& files, double time,
                   std::optional<TimelineRow> row);

}

}
