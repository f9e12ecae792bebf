#pragma once

#include "core/model/Clip.h"
#include "platform/base/Shared.h"

#include <algorithm>
#include <vector>

namespace murbo {

/// Lines or notes by their middle, so that a clip finds its own without a walk through hours of them. Points
/// into the list that it was made of.
template <class Spoken>
class ByMiddle {
public:
    explicit ByMiddle(const List<Spoken>& all) {
        sorted.reserve(all.size());
        for (const auto& one : all) sorted.push_back(&one);
        std::sort(sorted.begin(), sorted.end(), [](auto* a, auto* b) { return a->middle() < b->middle(); });
    }

    /// Those whose middle lies in the clip, by their start; those that start together in transcript order.
    std::vector<const Spoken*> in(const Clip& clip) const {
        const auto before = [](const Spoken* one, double moment) { return one->middle() < moment; };
        const auto from = std::lower_bound(sorted.begin(), sorted.end(), clip.start, before);
        const auto to = std::lower_bound(from, sorted.end(), clip.end, before);
        std::vector<const Spoken*> found(from, to);
        // All are elements of one vector, so their addresses stand in its order.
        std::sort(found.begin(), found.end(),
                  [](auto* a, auto* b) { return a->start != b->start ? a->start < b->start : a < b; });
        return found;
    }

private:
    std::vector<const Spoken*> sorted;
};

}
