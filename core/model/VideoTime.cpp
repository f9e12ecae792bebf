#include "core/model/VideoTime.h"

#include "core/model/Times.h"

#include <algorithm>

namespace murbo::VideoTime {

std::vector<double> starts(const List<Cut>& cuts) {
    std::vector<double> result;
    result.reserve(cuts.size());
    double start = 0;
    for (const auto& cut : cuts) {
        result.push_back(start);
        start += cut.length();
    }
    return result;
}

std::optional<Place> locate(double time, const List<Cut>& cuts) {
    double start = 0;
    for (std::size_t index = 0; index < cuts.size(); ++index) {
        const auto& cut = cuts[index];
        if (time < start + cut.length() || index + 1 == cuts.size())
            return Place{index, std::min(cut.start + std::max(time - start, 0.0), cut.end)};
        start += cut.length();
    }
    return std::nullopt;
}

Stretch shown(const Cut& cut) {
    return {cut.start - Times::samePlace, cut.end - Times::samePlace};
}

bool shows(const Cut& cut, double at) {
    const auto [from, to] = shown(cut);
    return from <= at && at < to;
}

}
