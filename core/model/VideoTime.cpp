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

std::optional<double> on(const UUID& source, const List<Cut>& cuts, double at) {
    double start = 0;
    for (const auto& cut : cuts) {
        if (cut.source == source && shows(cut, at)) return start + std::max(at - cut.start, 0.0);
        start += cut.length();
    }
    return std::nullopt;
}

bool shows(const Cut& cut, double at) {
    return cut.start - Times::samePlace <= at && at < cut.end - Times::samePlace;
}

}
