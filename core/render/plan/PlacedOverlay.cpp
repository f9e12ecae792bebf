#include "core/render/plan/PlacedOverlay.h"

#include "core/model/Lanes.h"
#include "core/model/ShownMoments.h"
#include "core/model/Times.h"
#include "core/model/VideoTime.h"
#include "core/render/plan/PlacedShot.h"
#include "core/render/plan/PlanBooks.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace murbo {

namespace {

constexpr double shortest = 0.1;            // seconds
constexpr std::size_t maxOverlays = 20'000; // no video has nearly as many

/// What a placement's parameters are filled in with. Those of one playbook that fill in nothing share one
/// list; the others copy it, as long as there are not absurdly many values.
class PlacedValues {
public:
    Shared<Values> of(const Shared<Book>& book, const std::optional<Values>& overrides) {
        const auto [found, isNew] = defaults.try_emplace(&*book);
        auto& usual = found->second;
        if (isNew) usual = book->values({});
        if (!overrides || overrides->empty() || copied + usual->size() > maxValues) return usual;
        copied += usual->size();
        return book->values(overrides);
    }

private:
    static constexpr std::size_t maxValues = 200'000;

    std::map<const Book*, Shared<Values>> defaults;
    std::size_t copied = 0;
};

double atLeast(double length) {
    return length > shortest ? length : shortest; // also of what is no number
}

/// Where cuts end in their video.
class CutEnds {
public:
    explicit CutEnds(const List<Cut>& given) : cuts(given), starts(VideoTime::starts(given)) {}

    /// Where what begins at a video time and lasts that long ends: with its cut where it was meant to, else
    /// by its length, and never after the video.
    double end(double start, const Overlay& overlay) const {
        const auto after = std::ranges::upper_bound(starts, start);
        if (after == starts.begin()) return start;
        const auto index = std::size_t(after - starts.begin()) - 1;
        const double cutEnd = starts[index] + cuts[index].length();
        const double length = atLeast(overlay.length);
        if (std::abs(overlay.at + length - cuts[index].end) < Times::tick / 2) return cutEnd;
        return std::min(start + length, starts.back() + cuts.back().length());
    }

private:
    const List<Cut>& cuts;
    const std::vector<double> starts;
};

/// Generators that are on together lie in rows, as the timeline shows them.
void putInRows(std::vector<PlacedOverlay>& overlays) {
    std::vector<PlacedOverlay*> generators;
    std::vector<Stretch> stretches;
    for (PlacedOverlay& placed : overlays) {
        if (!placed.playbook().layered()) continue;
        generators.push_back(&placed);
        stretches.push_back({placed.start, placed.end});
    }
    const auto rows = Lanes::assign(stretches);
    for (std::size_t index = 0; index < rows.size(); ++index) generators[index]->row = rows[index];
}

}

std::vector<PlacedOverlay> PlacedOverlay::place(const List<Overlay>& overlays, const List<Cut>& cuts,
                                                PlanBooks& books) {
    std::vector<PlacedOverlay> placed;
    const CutEnds ends(cuts);
    const ShownMoments moments(cuts);
    PlacedValues values;
    for (const Overlay& overlay : overlays) {
        if (placed.size() == maxOverlays) break;
        const auto start = moments.on(overlay.source, overlay.at);
        const auto* book = start ? books.find(overlay.playbook, overlay.version) : nullptr;
        if (!book) continue;
        placed.push_back({.start = *start,
                          .end = ends.end(*start, overlay),
                          .overlay = overlay,
                          .book = *book,
                          .values = values.of(*book, overlay.values)});
    }
    putInRows(placed);
    return placed;
}

std::vector<PlacedOverlay> PlacedOverlay::generated(const List<Cut>& cuts, PlanBooks& books) {
    std::vector<PlacedOverlay> placed;
    PlacedValues values;
    double start = 0;
    for (const Cut& cut : cuts) {
        if (placed.size() == maxOverlays) break;
        const auto* book =
            cut.generator ? books.find(cut.generator->playbook, cut.generator->version) : nullptr;
        if (book)
            placed.push_back({.start = start,
                              .end = start + cut.length(),
                              .overlay = {.id = cut.id,
                                          .playbook = cut.generator->playbook,
                                          .version = cut.generator->version,
                                          .source = cut.source,
                                          .at = cut.start,
                                          .length = cut.length()},
                              .book = *book,
                              .values = values.of(*book, cut.generator->values)});
        start += cut.length();
    }
    return placed;
}

PlacedOverlay PlacedOverlay::layout(const PlacedShot& placed, double time, const Shared<Book>& book,
                                    Values values) {
    return {.start = placed.start,
            .end = placed.start + atLeast(placed.end - placed.start),
            .overlay = {.id = placed.shot.id,
                        .playbook = placed.shot.playbook.value_or(""),
                        .version = book->version(),
                        .source = placed.shot.source,
                        .length = placed.end - placed.start},
            .book = book,
            .values = std::move(values),
            .zoom = placed.zoom(time),
            .focus = placed.moved(time).focus};
}

}
