#pragma once

#include "app/editor/Pick.h"
#include "core/model/Project.h"
#include "core/render/plan/Plan.h"

#include <set>
#include <stop_token>
#include <string>
#include <vector>

namespace murbo {

/// What is worth a look before a video goes out: what a viewer would stumble over and an export does not
/// refuse.
namespace MovieChecks {

struct Finding {
    std::string words; ///< "Cut 4 ends inside “that is the bush”"
    Pick pick;         ///< what it is about
    double time = 0;   ///< video seconds at which it is seen
    /// Of a cut that ends or starts while somebody speaks: where its edge would leave them to finish, in
    /// seconds on the source.
    struct BetterEdge {
        bool start = false;
        double to = 0;
        bool operator==(const BetterEdge&) const = default;
    };
    std::optional<BetterEdge> fix;

    bool operator==(const Finding&) const = default;
};

/// What an app covers of an upright frame, as shares of its sides.
struct CoveredEdges {
    std::string app;
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

/// Captions beyond that are not looked at: each is drawn once.
inline constexpr std::size_t maxCaptions = 200;

/// Cuts without a file, and edges at which somebody is cut off. Fast.
std::vector<Finding> ofCuts(const Project& project, const Video& video, const std::set<UUID>& missing);

/// Captions that an app's buttons would cover, or that have letters which no font here has. Takes tens of
/// milliseconds a caption; any thread.
std::vector<Finding> ofCaptions(const Plan& plan, const std::vector<CoveredEdges>& apps,
                                std::stop_token stop);

}

}
