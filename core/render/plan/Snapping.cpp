#include "core/render/plan/Snapping.h"

#include "core/model/ShownMoments.h"
#include "core/model/VideoTime.h"
#include "core/render/plan/PlacedShot.h"

#include <cmath>

namespace murbo::Snapping {
namespace {

constexpr double noMove = 1e-9; // seconds by which an edge must be moved to count as caught

void addShots(std::vector<double>& times, const Look& look, const Video& video,
              const std::optional<UUID>& except) {
    for (const auto& placed : PlacedShot::place(look.shots, video.cuts)) {
        if (placed.implicit || placed.shot.id == except) continue;
        times.push_back(placed.start);
        times.push_back(placed.end);
    }
}

/// Both edges of each block that the cuts show; of one without a length, its start.
template <class Blocks>
void addBlocks(std::vector<double>& times, const Blocks& blocks, const ShownMoments& shown,
               const std::optional<UUID>& except) {
    for (const auto& block : blocks) {
        const auto start = block.id == except ? std::nullopt : shown.on(block.source, block.at);
        if (!start) continue;
        times.push_back(*start);
        const std::optional<double> length = block.length;
        if (length) times.push_back(*start + *length);
    }
}

void addBookmarks(std::vector<double>& times, const List<Bookmark>& bookmarks, const ShownMoments& shown) {
    for (const auto& bookmark : bookmarks) {
        if (const auto at = shown.on(bookmark.source, bookmark.at)) times.push_back(*at);
        if (!bookmark.end) continue;
        if (const auto end = shown.on(bookmark.source, *bookmark.end)) times.push_back(*end);
    }
}

}

double nearest(double value, const std::vector<double>& among, double within) {
    if (!(within > 0) || among.empty()) return value;
    double best = among.front();
    for (const auto time : among)
        if (std::abs(time - value) < std::abs(best - value)) best = time;
    return std::abs(best - value) <= within ? best : value;
}

double shift(double first, double second, double by, const std::function<double(double)>& snap) {
    const double byFirst = snap(first + by) - first;
    const double bySecond = snap(second + by) - second;
    const bool firstCaught = std::abs(byFirst - by) > noMove;
    const bool secondCaught = std::abs(bySecond - by) > noMove;
    if (firstCaught && secondCaught)
        return std::abs(bySecond - by) < std::abs(byFirst - by) ? bySecond : byFirst;
    if (firstCaught) return byFirst;
    return secondCaught ? bySecond : by;
}

std::vector<double> lineEdges(const Transcript* transcript) {
    std::vector<double> edges;
    if (!transcript) return edges;
    for (const auto& line : transcript->lines) {
        if (line.isGone()) continue;
        edges.push_back(line.start);
        edges.push_back(line.end);
    }
    return edges;
}

std::vector<double> targets(const Video& video, const List<Bookmark>& bookmarks,
                            const std::optional<UUID>& except) {
    std::vector<double> times{0, video.length()};
    for (const auto start : VideoTime::starts(video.cuts)) times.push_back(start);
    const ShownMoments shown(video.cuts);
    if (video.look) {
        addShots(times, *video.look, video, except);
        addBlocks(times, video.look->overlays, shown, except);
        addBlocks(times, video.look->sounds, shown, except);
        addBlocks(times, video.look->music, shown, except);
    }
    addBookmarks(times, bookmarks, shown);
    return times;
}

}
