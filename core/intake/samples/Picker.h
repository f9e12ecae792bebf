#pragma once

#include "core/intake/samples/Heard.h"
#include "core/intake/samples/PickRules.h"
#include "core/intake/samples/Samples.h"
#include "platform/base/UUID.h"

#include <optional>
#include <random>
#include <vector>

namespace murbo {

/// A stretch worth using.
struct Pick {
    UUID source;
    double start = 0; ///< seconds
    double end = 0;
    std::optional<double> score;       ///< the mean over the stretch; none for one put anywhere
    std::optional<Samples::Move> move; ///< the most common one
    bool voiced = false;               ///< somebody speaks in it
    bool loud = false;                 ///< something is loud in it

    double middle() const { return (start + end) * 0.5; }
    bool operator==(const Pick&) const = default;
};

/// Finds stretches worth using by numbers alone.
namespace Picker {

struct Length {
    UUID source;
    double seconds = 0;
};

/// How good each moment is, 0 to 1; nothing for a moment that must not be used.
std::vector<std::optional<double>> scores(const Samples& samples, const Heard& heard, const PickRules& rules);

/// The good stretches of a source, in time order.
std::vector<Pick> picks(const UUID& source, const Samples& samples, const Heard& heard,
                        const PickRules& rules);

/// One pick for each `every` seconds of all sources laid end to end: the best one there, or one of `length`
/// seconds put anywhere. The generator makes a run repeatable. At most `maxSlots` of them.
std::vector<Pick> spread(const std::vector<Length>& sources, double every, double length,
                         const std::vector<Pick>& picks, std::mt19937_64& generator);

/// So that a slip of the hand in `every` does not fill the memory.
inline constexpr std::size_t maxSlots = 100'000;

}

}
