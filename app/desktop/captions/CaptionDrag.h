#pragma once

#include "app/desktop/captions/CaptionEdits.h"
#include "core/model/Stretch.h"

#include <optional>

namespace murbo {

/// A caption under the hand. Its edges retime its line, or between two pieces of a broken one move the place
/// where they meet; taken as a whole, the line goes with all its pieces.
class CaptionDrag {
public:
    /// What of it is taken hold of.
    enum class CaptionGrip { start, end, whole };

    explicit CaptionDrag(Editor& session) : editor(session) {}

    /// Takes hold of a caption that is shown for that stretch, in video seconds. Nothing where there is none.
    void begin(const Pick& caption, Stretch shown, CaptionGrip part);
    /// Brings the edge, or the start of the caption, to a video time, as near as it may go.
    void move(double time);
    /// Makes it a step.
    void end();

private:
    /// The stretch that a line has on the video, in the cut that shows the caption.
    struct LineOnVideo {
        CaptionEdits::WholeCaption caption;
        UUID line;
        double from = 0; ///< video seconds
        double to = 0;
        double start = 0; ///< seconds on the source
        double end = 0;
        double toSource = 0; ///< what turns a video time into one on the source
        Stretch whole;       ///< of the line, on the source, beyond the cut too
        Stretch cut;         ///< what the cut shows of the source
        double shown = 0;    ///< video seconds at which the caption begins
    };
    std::optional<LineOnVideo> find(const Pick& caption, Stretch shown) const;
    void retime(double time);
    void moveMeet(double time);
    void moveWhole(double time);

    Editor& editor;
    std::optional<LineOnVideo> held;
    CaptionGrip hold = CaptionGrip::whole;
    std::optional<std::size_t> meet; ///< between the piece of that index and the next
};

}
