#include "core/model/Video.h"

#include <fmt/format.h>

namespace murbo {

double Video::length() const {
    double length = 0;
    for (const auto& cut : cuts) length += cut.length();
    return length;
}

std::string Video::tag() const {
    return fmt::format("V{}{}", number, part.value_or(""));
}

}
