#pragma once

#include "core/model/Project.h"
#include "core/model/Stretch.h"

#include <map>
#include <optional>
#include <vector>

namespace murbo {

/// When somebody speaks, source by source. What was found is kept for as long as a source's lines are the
/// very same ones. One thread.
class SpokenTimes {
public:
    /// Whether one cut goes on where the other ended, so that nothing is missed between them.
    static bool goesOn(const Cut& before, const Cut& after);

    /// Whether a cut at `time`, in seconds on the source, cuts somebody off.
    bool holds(const Project& project, const UUID& source, double time) {
        return around(project, source, time).has_value();
    }
    /// What is being said at `time`, where a cut there cuts somebody off.
    std::optional<Stretch> around(const Project& project, const UUID& source, double time);
    /// The stretches of a range of a source in which nobody speaks for at least `least` seconds. None
    /// where nothing was written down: nobody knows who speaks there.
    std::vector<Stretch> quiet(const Project& project, const UUID& source, Stretch range, double least);

private:
    struct SpokenSource {
        List<Line> lines;
        std::vector<Stretch> spoken; ///< by their beginnings
        std::vector<double> reached; ///< by each of them, the latest end so far
    };
    const SpokenSource& of(const Project& project, const UUID& source);

    std::map<UUID, SpokenSource> sources;
};

}
