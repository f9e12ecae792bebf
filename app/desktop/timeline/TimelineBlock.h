#pragma once

#include "app/editor/Pick.h"
#include "app/editor/commands/TimelinePicks.h"
#include "core/model/Stretch.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace murbo {

/// One block on a row of the timeline. Times in seconds of the video.
struct TimelineBlock {
    /// How it is drawn.
    enum class Paint {
        split,
        content,
        face,
        layer,
        cut,
        caption,
        bigCaption,
        hiddenCaption,
        overlay,
        sound,
        music
    };

    Pick pick;
    bool pickable = true; ///< the framing that stands where no shot was put is none that could be picked
    TimelineRow row = TimelineRow::picture;
    int lane = 0;
    double from = 0;
    double to = 0;
    std::string label;
    Paint paint = Paint::cut;
    bool byBook = false; ///< of a shot: a playbook lays it out
    bool muted = false;
    bool silent = false;        ///< of a cut: the whole row is turned off
    bool missing = false;       ///< its footage is gone
    std::optional<UUID> source; ///< whose pictures and sound it shows; none for what is generated
    int card = 0;               ///< of a generated cut: which picture it has; 0 for none
    double at = 0;              ///< seconds on the source, or in the sound's file, at `from`
    std::vector<Stretch> quiet; ///< in which nobody speaks
    bool startsInWord = false;  ///< somebody is cut off there who is speaking
    bool endsInWord = false;
    std::optional<std::filesystem::path> file; ///< that an overlay shows, or a sound plays
    double sourceLength = 0; ///< seconds of the whole source of a cut; 0 where that is not known

    double length() const { return to - from; }
    /// The same block, later by some seconds of the video.
    TimelineBlock movedBy(double seconds) const;
    bool operator==(const TimelineBlock&) const = default;
};

}
