#include "platform/image/kernels/Line.h"

#include <algorithm>
#include <cmath>

namespace murbo::Kernels {

Line Line::through(double offset, double slope) {
    constexpr double farthest = double(std::int64_t(1) << 36);
    constexpr double steepest = double(1 << 20);
    const auto fixed = [](double value, double max) {
        return std::isnan(value) ? 0 : std::llround(std::clamp(value, -max, max) * double(one));
    };
    return {fixed(offset, farthest), fixed(slope, steepest)};
}

}
