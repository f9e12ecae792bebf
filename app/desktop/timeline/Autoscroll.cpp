#include "app/desktop/timeline/Autoscroll.h"

#include <algorithm>

namespace murbo {

double Autoscroll::speed(double x, double width) {
    if (width < 3 * reach) return 0;
    const double left = reach - x;
    const double right = x - (width - reach);
    const auto share = [](double depth) { return std::clamp(depth / (2 * reach), 0.0, 1.0); };
    return fastest * (share(right) * share(right) - share(left) * share(left));
}

}
