#include "core/render/plan/Ease.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace murbo::Ease {
namespace {

double bounce(double progress) {
    struct Arc {
        double until, middle, height;
    };
    static constexpr Arc arcs[] = {{1 / 2.75, 0, 0},
                                   {2 / 2.75, 1.5 / 2.75, 0.75},
                                   {2.5 / 2.75, 2.25 / 2.75, 0.9375},
                                   {HUGE_VAL, 2.625 / 2.75, 0.984375}};
    const Arc& arc = *std::find_if(std::begin(arcs), std::end(arcs) - 1,
                                   [&](const Arc& each) { return progress < each.until; });
    return 7.5625 * (progress - arc.middle) * (progress - arc.middle) + arc.height;
}

}

double along(EaseCurve curve, double progress) {
    const double left = 1 - progress;
    switch (curve) {
        case EaseCurve::smooth:
            return progress * progress * (3 - 2 * progress);
        case EaseCurve::linear:
            return progress;
        case EaseCurve::snap:
            return 1 - left * left * left;
        case EaseCurve::bounce:
            return bounce(progress);
    }
    return progress;
}

double named(const std::optional<std::string>& name, double progress) {
    const auto curve = fromRawText<EaseCurve>(name.value_or("")).value_or(EaseCurve::smooth);
    return along(curve == EaseCurve::bounce ? EaseCurve::smooth : curve, progress);
}

}
