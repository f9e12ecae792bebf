#pragma once

#include "core/model/Cut.h"
#include "core/model/Overlay.h"
#include "core/playbooks/Book.h"
#include "core/render/plan/FrameTime.h"
#include "platform/base/Shared.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace murbo {

struct Cut;
struct PlacedShot;
class PlanBooks;

/// A playbook on the video's own clock: what is drawn, from when to when, and with which values.
struct PlacedOverlay {
    double start = 0; ///< video seconds
    double end = 0;
    Overlay overlay;             ///< its id stays the same for as long as the same thing is drawn
    Shared<Book> book;           ///< one for all that show it
    Shared<Values> values;       ///< of all its parameters; one for all that fill in nothing
    double zoom = 1;             ///< of a layout: the shot's
    std::optional<double> focus; ///< of a layout: the shot's, 0 to 1 across
    std::size_t row = 0;         ///< of a generator: among those laid over the picture, the undermost 0

    const Playbook& playbook() const { return book->playbook; }
    bool isOn(double time) const { return FrameTime::isOn(start, end, time); }

    /// A look's overlays whose moment the cuts show and whose playbook is found, in the look's order.
    static std::vector<PlacedOverlay> place(const List<Overlay>& overlays, const List<Cut>& cuts,
                                            PlanBooks& books);

    /// The generated cuts whose playbook is found, each under its cut's id.
    static std::vector<PlacedOverlay> generated(const List<Cut>& cuts, PlanBooks& books);

    /// A layout at a moment of the shot that it lays out, under the shot's id, with these values.
    static PlacedOverlay layout(const PlacedShot& shot, double time, const Shared<Book>& book, Values values);
};

}
