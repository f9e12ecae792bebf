#include "core/model/Video.h"

#include "core/model/Times.h"

#include <algorithm>

#include <fmt/format.h>

namespace murbo {

Cut Cut::generated(std::string playbook, std::int64_t version, std::optional<Values> values, double length) {
    Cut cut;
    cut.source = UUID::make();
    cut.end = std::max(length, Times::shortestCut);
    cut.generator = Generator{std::move(playbook), version, std::move(values)};
    return cut;
}

double Video::length() const {
    double length = 0;
    for (const auto& cut : cuts) length += cut.length();
    return length;
}

std::string Video::tag() const {
    return fmt::format("V{}{}", number, part.value_or(""));
}

}
