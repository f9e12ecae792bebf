#pragma once

#include "core/model/Video.h"

#include <map>
#include <optional>
#include <vector>

namespace murbo {

/// Where a video shows moments of its sources. The cuts are gone through once, and each moment is then found
/// by halving: a file may hold a hundred thousand of both.
class ShownMoments {
public:
    explicit ShownMoments(const List<Cut>& cuts);

    /// The first video time at which a moment of a source is shown. Nothing where no cut shows it.
    std::optional<double> on(const UUID& source, double at) const;

private:
    /// From a moment of a source to the next span's, what shows it first.
    struct ShownSpan {
        double from = 0;
        bool shown = false;
        double cut = 0;   ///< seconds on the source at which that cut starts
        double start = 0; ///< video seconds at which it does
    };

    std::map<UUID, std::vector<ShownSpan>> sources; ///< each in time order
};

}
