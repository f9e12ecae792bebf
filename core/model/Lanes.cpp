#include "core/model/Lanes.h"

#include "core/model/Times.h"

#include <algorithm>
#include <numeric>

namespace murbo::Lanes {
namespace {

std::vector<std::size_t> byBeginning(const std::vector<Stretch>& stretches) {
    std::vector<std::size_t> order(stretches.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](auto a, auto b) { return stretches[a].from < stretches[b].from; });
    return order;
}

}

std::vector<std::size_t> assign(const std::vector<Stretch>& stretches) {
    std::vector<std::size_t> rows(stretches.size());
    std::vector<double> ends; // of the last block of each row
    for (const auto at : byBeginning(stretches)) {
        const auto& stretch = stretches[at];
        const auto free = std::find_if(ends.begin(), ends.end(),
                                       [&](double end) { return end <= stretch.from + Times::noStretch; });
        rows[at] = static_cast<std::size_t>(free - ends.begin());
        if (free == ends.end()) {
            ends.push_back(stretch.to);
        } else {
            *free = stretch.to;
        }
    }
    return rows;
}

}
