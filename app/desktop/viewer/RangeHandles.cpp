#include "app/desktop/viewer/RangeHandles.h"

#include <algorithm>
#include <cmath>

namespace murbo::RangeHandles {

double StripScale::x(double time) const {
    return span.to > span.from ? (time - span.from) / (span.to - span.from) * width : 0;
}

double StripScale::time(double x) const {
    return span.from + x / std::max(width, 1.0) * (span.to - span.from);
}

RangeEnd at(const Stretch& range, const StripScale& strip, double x) {
    const double start = std::abs(x - strip.x(range.from));
    const double end = std::abs(x - strip.x(range.to));
    if (std::min(start, end) > reach) return RangeEnd::none;
    // Of two at one place the one on whose outer side the pointer is.
    if (start == end) return x < strip.x(range.from) ? RangeEnd::start : RangeEnd::end;
    return start < end ? RangeEnd::start : RangeEnd::end;
}

Stretch dragged(const Stretch& range, RangeEnd end, double to, const Stretch& span) {
    const double time = std::clamp(to, span.from, std::max(span.to, span.from));
    if (end == RangeEnd::start) return {std::min(time, range.to - shortest), range.to};
    if (end == RangeEnd::end) return {range.from, std::max(time, range.from + shortest)};
    return range;
}

}
