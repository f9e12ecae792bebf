#pragma once

#include "app/desktop/captions/CaptionDrag.h"
#include "app/desktop/timeline/PartedRow.h"
#include "app/desktop/timeline/TimelineLayout.h"
#include "app/desktop/timeline/TimelineScene.h"
#include "app/editor/commands/TimelinePicks.h"

#include <optional>
#include <set>

namespace murbo {

class Editor;

/// What the mouse does on the timeline, from the press to the release: all its mathematics, and no window.
/// Fed by the mouse, by keys and by tests alike.
class TimelineDrag {
public:
    /// What a press takes hold of.
    enum class Grip { none, scrub, pan, start, end, roll, slip, cut, block, band };

    /// Where the pointer is, in points from the top left of the rows.
    struct Pointer {
        double x = 0;
        double y = 0;
    };
    using Modifiers = TimelinePicks::Modifiers;

    explicit TimelineDrag(Editor& session) : editor(session), caption(session) {}

    /// What a press at a point would take hold of.
    Grip grip(const TimelineLayout& layout, const TimelineSpan& span, Pointer at) const;

    void press(const TimelineLayout& layout, const TimelineSpan& span, Pointer at, Modifiers held);
    /// `span` as it is by now. The answer is by how many seconds the timeline is to be scrolled.
    double move(const TimelineLayout& layout, const TimelineSpan& span, Pointer at, Modifiers held);
    void release();
    /// Lets go without a change.
    void cancel();

    bool active() const { return now != Grip::none; }
    Grip holding() const { return now; }
    /// Where a cut that is dragged would land.
    const std::optional<PartedRow::Landing>& landing() const { return drop; }
    /// Where what is dragged has caught.
    std::optional<double> snapLine() const { return snap; }
    /// The cut whose end or footage is dragged; null where none is.
    const TimelineBlock* trimmed(const TimelineLayout& layout) const;
    /// A cut on its way to another place: it goes with the hand.
    std::optional<TimelineBlock> ghost() const;
    /// A rubber band: from one point to another, x in video seconds.
    struct RubberBand {
        double from = 0;
        double to = 0;
        double top = 0;
        double bottom = 0;
    };
    std::optional<RubberBand> band() const;

private:
    void dragCut(double time);
    bool cutWithBlade(const TimelineBlock* block, double time, double scale, const Modifiers& held);
    void dragEdge(double time, double scale, const Modifiers& held);
    void dragSeam(double time, double scale, const Modifiers& held);
    void dragBlock(double time, double scale, const Modifiers& held);
    void dragCaption(double time, double scale, const Modifiers& held);
    void dragBand(const TimelineLayout& layout, double time, double y);

    Editor& editor;
    CaptionDrag caption;
    Grip now = Grip::none;
    std::optional<TimelineBlock> held;
    Pointer pressed;
    double pressedTime = 0;
    double bandTo = 0;
    double ghostBy = 0; ///< seconds
    double bandBottom = 0;
    bool moved = false;
    std::optional<PartedRow::Landing> drop;
    std::optional<double> snap;
    std::vector<Pick> before; ///< picks, as a band began
};

}
