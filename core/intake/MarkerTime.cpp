#include "core/intake/MarkerTime.h"

#include "platform/base/Numbers.h"
#include "platform/base/Text.h"

#include <algorithm>
#include <cmath>

namespace murbo {

std::optional<double> MarkerTime::parse(std::string_view field) {
    double value = 0;
    int parts = 0;
    for (std::size_t at = 0; at < field.size();) {
        const auto end = std::min(field.find(':', at), field.size());
        if (end > at) {
            const auto part = Numbers::parse(Text::trimmedOfBlanks(field.substr(at, end - at)));
            if (!part || ++parts > 3) return {};
            value = value * 60 + *part;
        }
        at = end + 1;
    }
    return parts > 0 && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

}
