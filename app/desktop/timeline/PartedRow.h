#pragma once

#include "app/desktop/timeline/TimelineLayout.h"

#include <cstddef>
#include <map>
#include <optional>

namespace murbo {

/// The picture row while a cut is carried, one of its own or new ones: the others part, so that there is room
/// where it would land. They get there in a moment rather than at once. Pure; times in milliseconds of
/// whatever clock.
class PartedRow {
public:
    static constexpr double moment = 120; ///< ms

    /// Where a carried cut would land.
    struct Landing {
        std::optional<UUID> cut; ///< none for what comes from elsewhere
        std::size_t place = 0;   ///< before the cut that stands there
        double length = 0;       ///< seconds, of what comes from elsewhere
        bool operator==(const Landing&) const = default;
    };

    /// Lets the cuts go to where that landing has them, from where they are now; without one to their places.
    void aim(const TimelineLayout& layout, const std::optional<Landing>& landing, double now);
    /// Every cut is in its place at once: they stand there in the project.
    void settle();

    bool moving(double now) const { return !aims.empty() && now < begun + moment; }
    /// By how many seconds of the video each cut that is out of its place stands aside.
    std::map<UUID, double> aside(double now) const;
    const std::optional<Landing>& landing() const { return aimed; }
    /// The room that is kept free, in video seconds.
    static std::optional<Stretch> room(const TimelineLayout& layout, const Landing& landing);

private:
    struct Aim {
        double from = 0;
        double to = 0;
    };
    double share(double now) const;

    std::optional<Landing> aimed;
    std::map<UUID, Aim> aims;
    double begun = 0;
};

}
