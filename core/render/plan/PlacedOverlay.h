#pragma once

#include "core/model/Look.h"
#include "core/playbooks/Book.h"
#include "platform/base/Shared.h"

#include <optional>

namespace murbo {

/// A playbook on the video's own clock: what is drawn, from when to when, and with which values.
struct PlacedOverlay {
    double start = 0; ///< video seconds
    double end = 0;
    Overlay overlay;             ///< its id stays the same for as long as the same thing is drawn
    Shared<Book> book;           ///< one for all that show it
    Values values;               ///< of all its parameters
    double zoom = 1;             ///< of a layout: the shot's
    std::optional<double> focus; ///< of a layout: the shot's, 0 to 1 across

    const Playbook& playbook() const { return book->playbook; }
};

}
