#include "core/render/plan/PlacedShot.h"

#include "core/model/ShotMove.h"
#include "core/model/Times.h"
#include "core/model/VideoTime.h"
#include "core/render/plan/Ease.h"
#include "core/render/plan/Motion.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>

namespace murbo {

namespace {

constexpr double minPanZoom = 1.2;  // a pan needs room to travel
constexpr double shakeLength = 0.8; // seconds
constexpr double joltsASecond = 24;
constexpr std::size_t maxShots = 20'000; // a file may ask for every shot in each of thousands of cuts
constexpr std::uint64_t focusSeed = 0x9E3779B97F5EADDF;
constexpr std::uint64_t joltSeed = 0x9E3779B97F72C0BA;

std::optional<ShotMove> moveOf(const Shot& shot) {
    return fromRawText<ShotMove>(shot.move.value_or(""));
}

double eased(const PlacedShot& placed, double time) {
    const double progress = (time - placed.start) / std::max(placed.end - placed.start, 0.01);
    return Ease::named(placed.shot.ease, progress > 0 ? std::min(progress, 1.0) : 0);
}

/// What a shake throws at that moment, -0.5 to 0.5, dying away.
double shake(std::uint64_t seed, double elapsed) {
    const double decay = std::max(0.0, 1 - elapsed / shakeLength);
    return decay * (Motion::noise(seed, Motion::step(elapsed, joltsASecond)) - 0.5);
}

/// The shots of each source in the order of their moments, so that those which a cut shows lie together.
class ShotsBySource {
public:
    explicit ShotsBySource(const List<Shot>& shots) {
        for (const Shot& shot : shots)
            if (!std::isnan(shot.at)) sources[shot.source].push_back(&shot);
        for (auto& [_, of] : sources) std::ranges::sort(of, {}, &Shot::at);
    }

    /// Those that a cut shows, in the order of the list.
    std::vector<const Shot*> in(const Cut& cut) const {
        const auto found = sources.find(cut.source);
        if (found == sources.end()) return {};
        const auto [from, to] = VideoTime::shown(cut);
        if (!(from < to)) return {};
        const auto first = std::ranges::lower_bound(found->second, from, {}, &Shot::at);
        const auto last = std::ranges::lower_bound(found->second, to, {}, &Shot::at);
        std::vector<const Shot*> shown(first, last);
        std::ranges::sort(shown); // they lie in one vector
        return shown;
    }

private:
    std::map<UUID, std::vector<const Shot*>> sources;
};

/// Each shot at each moment that shows it, in time order, those of one moment in the order they are met.
std::vector<PlacedShot> moments(const List<Shot>& shots, const List<Cut>& cuts) {
    const ShotsBySource all(shots);
    std::vector<PlacedShot> moments;
    double start = 0;
    for (const Cut& cut : cuts) {
        for (const Shot* shot : all.in(cut))
            moments.push_back({.start = start + std::max(shot->at - cut.start, 0.0), .shot = *shot});
        start += cut.length();
        if (moments.size() > maxShots) break;
    }
    std::ranges::stable_sort(moments, {}, &PlacedShot::start);
    return moments;
}

PlacedShot head(const Cut& cut) {
    return {.shot = {.source = cut.source, .at = cut.start}, .implicit = true};
}

}

std::vector<PlacedShot> PlacedShot::place(const List<Shot>& shots, const List<Cut>& cuts) {
    if (cuts.empty()) return {};
    std::vector<PlacedShot> placed = moments(shots, cuts);
    if (placed.empty() || placed.front().start > Times::samePlace)
        placed.insert(placed.begin(), head(cuts.front()));
    double end = VideoTime::starts(cuts).back() + cuts.back().length();
    for (std::size_t index = placed.size(); index-- > 0; end = placed[index].start) placed[index].end = end;
    std::erase_if(placed, [](const PlacedShot& shot) {
        return !shot.implicit && !(shot.end - shot.start > Times::noStretch);
    });
    return placed;
}

Shot PlacedShot::moved(double time) const {
    Shot result = shot;
    const auto move = moveOf(shot);
    if (move == ShotMove::panLeft) result.focus = 0.85 - 0.7 * eased(*this, time);
    if (move == ShotMove::panRight) result.focus = 0.15 + 0.7 * eased(*this, time);
    if (move == ShotMove::shake)
        result.focus = shot.focus.value_or(0.5) + shake(focusSeed, time - start) * 0.25;
    return result;
}

double PlacedShot::zoom(double time) const {
    const auto move = moveOf(shot);
    if (!move) return shot.zoom;
    switch (*move) {
        case ShotMove::push:
            return 1 + eased(*this, time) * (shot.zoom - 1);
        case ShotMove::pull:
            return shot.zoom - eased(*this, time) * (shot.zoom - 1);
        case ShotMove::drift:
            return shot.zoom * (1 + 0.08 * eased(*this, time));
        case ShotMove::panLeft:
        case ShotMove::panRight:
            return std::max(shot.zoom, minPanZoom);
        case ShotMove::shake:
            return shot.zoom;
    }
    return shot.zoom;
}

double PlacedShot::jolt(double time) const {
    return moveOf(shot) == ShotMove::shake ? shake(joltSeed, time - start) * 40 : 0;
}

}
