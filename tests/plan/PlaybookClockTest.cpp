#include "core/render/plan/PlaybookClock.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace murbo;

namespace {

constexpr double none = -1; ///< left out of the JSON

struct Placed {
    double length = none, enter = none, exit = none; ///< of the playbook
    double placed = 0;                               ///< seconds
    bool stretch = false;
};

Playbook::Layer layerFrom(double from, double to = none) {
    Playbook::Layer layer;
    layer.from = from;
    if (to != none) layer.to = to;
    return layer;
}

PlacedOverlay placed(const Placed& times) {
    const auto given = [](double value) { return value == none ? std::nullopt : std::optional(value); };
    Playbook playbook;
    playbook.length = given(times.length);
    playbook.timing = Playbook::Timing{given(times.enter), given(times.exit)};
    PlacedOverlay result;
    result.start = 100;
    result.end = 100 + times.placed;
    result.overlay.stretch = times.stretch;
    result.book = Book{playbook, std::nullopt};
    return result;
}

}

TEST(PlaybookClock, holdsTheMiddleOrStretchesAll) {
    struct Case {
        Placed times;
        double elapsed, own;
    };
    const Placed held{.length = 3, .placed = 10}, brief{.length = 3, .placed = 1.5};
    const Placed stretched{.length = 3, .placed = 6, .stretch = true};
    for (const auto& [times, elapsed, own] : {
             Case{held, 0.2, 0.2}, Case{held, 2, 2}, Case{held, 5, 2.7}, Case{held, 9.7, 2.7},
             Case{held, 9.9, 2.9}, Case{held, 10, 3},
             Case{{.length = 3, .placed = 3}, 2.9, 2.9}, // exactly its length: as it is
             Case{brief, 0.5, 1}, Case{stretched, 2, 1}, Case{stretched, 6, 3},
             Case{{.placed = 10}, 9.9, 2.9},                      // 3 s where the playbook says nothing
             Case{{.length = 0, .placed = 0}, 0.025, 0.1},        // 0.05 of 0.2 s at least
             Case{{.length = 3, .exit = 0, .placed = 10}, 10, 3}, // no exit: the middle is held at its end
         })
        EXPECT_NEAR(PlaybookClock(placed(times)).own(elapsed), own, 1e-9)
            << elapsed << " of " << times.placed;
}

TEST(PlaybookClock, keepsALayerOfTheExitAtItsDistanceFromTheEnd) {
    struct Case {
        Placed times;
        double from, to, on, off;
    };
    const Placed held{.length = 3, .placed = 10};
    for (const auto& [times, from, to, on, off] : {
             Case{held, 0, none, 0, 10},
             Case{held, 2.8, none, 9.8, 10},
             Case{held, 1, 2, 1, 2},
             Case{held, 2.7, 3, 9.7, 10},
             Case{held, 2.69, 9, 2.69, 10},
             Case{{.length = 3, .placed = 1.5}, 1, 2, 0.5, 1},
             Case{{.length = 3, .placed = 6, .stretch = true}, 1, none, 2, 6},
             // entrance and exit meet in the middle: a time at the end of the entrance stays
             Case{{.length = 1, .enter = 5, .exit = 5, .placed = 4}, 0.5, none, 0.5, 4},
         }) {
        const auto layer = layerFrom(from, to);
        const auto span = PlaybookClock(placed(times)).span(layer);
        EXPECT_NEAR(span.on, on, 1e-9) << from;
        EXPECT_NEAR(span.off, off, 1e-9) << to;
        EXPECT_NEAR(Stage::layerStart(placed(times), layer), on, 1e-9);
        EXPECT_TRUE(span.holds(on - 0.00005) && span.holds(off)) << from;
        EXPECT_FALSE(span.holds(on - 0.001) || span.holds(off + 0.001)) << from;
    }
}

TEST(PlaybookClock, scalesEntrancesWithThePlaybook) {
    EXPECT_DOUBLE_EQ(PlaybookClock(placed({.length = 3, .placed = 1.5})).entrance(), 0.15);
    EXPECT_DOUBLE_EQ(PlaybookClock(placed({.length = 3, .placed = 9})).exit(), 0.3);
    PlacedOverlay broken = placed({.length = 1e308, .placed = 1});
    broken.end = std::nan("");
    EXPECT_TRUE(std::isfinite(PlaybookClock(broken).factor()));
}
