#include "platform/vision/BilinearResize.h"

#include <algorithm>

namespace murbo {

std::vector<BilinearResize::SourcePair> BilinearResize::places(int from, int to, std::size_t step) {
    std::vector<SourcePair> result;
    const float scale = float(from) / float(to);
    for (int i = 0; i < to; ++i) {
        const float exact = std::max((float(i) + 0.5f) * scale - 0.5f, 0.f);
        const int before = std::min(int(exact), from - 1);
        const int after = std::min(before + 1, from - 1);
        result.push_back(
            {std::ptrdiff_t(step) * before, std::ptrdiff_t(step) * after, exact - float(before)});
    }
    return result;
}

}
