#pragma once

#include "app/desktop/captions/CaptionEdits.h"
#include "app/desktop/timeline/TimelineBlock.h"

#include <optional>

namespace murbo {

/// An edge of a caption under the hand: at the ends of its line it retimes the line, between two pieces of a
/// broken one it moves the place where they meet.
class CaptionDrag {
public:
    explicit CaptionDrag(Editor& session) : editor(session) {}

    /// Takes hold of an edge of a caption's block. Nothing where the block is none that stands.
    void begin(const TimelineBlock& block, bool start);
    /// Brings the edge to a video time, as near as it may go.
    void move(double time);
    /// Makes it a step.
    void end();

private:
    /// The stretch that a line has on the video, in the cut that shows the block.
    struct LineOnVideo {
        CaptionEdits::WholeCaption caption;
        UUID line;
        double from = 0; ///< video seconds
        double to = 0;
        double start = 0; ///< seconds on the source
        double end = 0;
        double toSource = 0; ///< what turns a video time into one on the source
    };
    std::optional<LineOnVideo> find(const TimelineBlock& block) const;
    void retime(double time);
    void moveMeet(double time);

    Editor& editor;
    std::optional<LineOnVideo> held;
    bool atStart = false;
    std::optional<std::size_t> meet; ///< between the piece of that index and the next
};

}
