#include "core/model/Cut.h"

#include "core/model/Times.h"

#include <algorithm>

namespace murbo {

Cut Cut::generated(std::string playbook, std::int64_t version, std::optional<Values> values, double length) {
    Cut cut;
    cut.source = UUID::make();
    cut.end = std::max(length, Times::shortestCut);
    cut.generator = Generator{std::move(playbook), version, std::move(values)};
    return cut;
}

}
