#include "platform/vision/SubjectMask.h"

#include "platform/image/draw/Canvas.h"
#include "platform/vision/MaskRefinement.h"
#include "platform/vision/SubjectWeights.h"

#include <algorithm>
#include <vector>

namespace murbo {

namespace {

constexpr double minShare = 0.005; ///< of the picture: less of a subject is a mistake

/// The network is trained on pictures stretched to its input. Bars beside the picture cost it heads.
Bitmap stretched(const Bitmap& picture, Graph::Shape to) {
    const Transform scale =
        Transform().scaled(double(to.width) / picture.width(), double(to.height) / picture.height());
    return Canvas::bitmap(Image::bitmap(picture).clamped().transformed(scale),
                          Rect{0, 0, double(to.width), double(to.height)});
}

/// What the network finds, looking at the picture as it is or in a mirror.
std::vector<float> look(const Network& network, const Bitmap& small, bool mirrored) {
    Network::Run run(network);
    const int width = small.width();
    const auto from = [&](int x) { return mirrored ? width - 1 - x : x; };
    float* to = run.input().data();
    for (int y = 0; y < small.height(); ++y)
        for (int x = 0; x < width; ++x)
            for (int channel : {2, 1, 0}) *to++ = float(small.row(y)[4 * from(x) + channel]) * (1.f / 255);
    const auto found = run.output();
    std::vector<float> result(found.begin(), found.end());
    if (mirrored)
        for (auto row = result.begin(); row != result.end(); row += width) std::reverse(row, row + width);
    return result;
}

/// In wide pictures people are smaller and the network is less sure: now and then it loses half a body for a
/// frame, which flickers. In the mirror it errs elsewhere, so the surer look counts for more.
std::vector<float> lookTwice(const Network& network, const Bitmap& small) {
    auto result = look(network, small, false);
    const auto other = look(network, small, true);
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] = std::max(result[i], other[i]) * 0.75f + std::min(result[i], other[i]) * 0.25f;
    return result;
}

bool isWide(const Bitmap& picture) {
    return picture.width() * 3 > picture.height() * 4;
}

}

bool SubjectMask::available() {
    return SubjectWeights::networks() != nullptr;
}

std::optional<Bitmap> SubjectMask::of(const Bitmap& picture) {
    const auto* networks = SubjectWeights::networks();
    if (!networks || picture.empty()) return {};
    const bool wide = isWide(picture);
    const Network& network = wide ? networks->landscape : networks->square;
    const Bitmap small = stretched(picture, network.input());
    const auto likely = wide ? lookTwice(network, small) : look(network, small, false);
    Bitmap mask = MaskRefinement::refined(picture, small, likely);
    if (MaskRefinement::share(mask) < minShare) return {};
    return mask;
}

}
