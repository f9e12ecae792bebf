#pragma once

#include "core/intake/samples/Samples.h"

#include <optional>
#include <set>

namespace murbo {

/// What matters when stretches are picked out of footage without words.
struct PickRules {
    /// What to do with a moment that has a certain sound.
    enum class Behaviour {
        include, ///< always good
        prefer,
        ignore,
        avoid,
        exclude ///< never good
    };

    double sharpness = 1; ///< weights against one another
    double exposure = 1;
    double steadiness = 1;
    double least = 0.6;                           ///< the score that a moment needs, 0 to 1
    double shortest = 2;                          ///< seconds of the shortest pick
    double longest = 10;                          ///< seconds of the longest
    double bridge = 0.5;                          ///< seconds of poorer moments that a pick may cross
    std::optional<std::set<Samples::Move>> moves; ///< only moments with these
    Behaviour voice = Behaviour::prefer;          ///< where somebody speaks
    Behaviour loud = Behaviour::prefer;           ///< where it is loud

    static PickRules vlog();
    static PickRules action();
    static PickRules scenery();

    bool operator==(const PickRules&) const = default;
};

}
