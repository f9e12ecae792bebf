#include "platform/vision/SubjectMask.h"

#include "platform/image/Canvas.h"
#include "platform/vision/MaskRefinement.h"
#include "platform/vision/SubjectWeights.h"

namespace murbo {

namespace {

constexpr double leastShare = 0.005; ///< of the picture: less of a subject is a mistake

/// The network is trained on pictures stretched to its input. Bars beside the picture cost it heads.
Bitmap stretched(const Bitmap& picture, Graph::Shape to) {
    const Transform scale =
        Transform().scaled(double(to.width) / picture.width(), double(to.height) / picture.height());
    return Canvas::bitmap(Image::bitmap(picture).clamped().transformed(scale),
                          Rect{0, 0, double(to.width), double(to.height)});
}

void fill(std::span<float> input, const Bitmap& small) {
    float* to = input.data();
    for (int y = 0; y < small.height(); ++y) {
        const std::uint8_t* from = small.row(y);
        for (int x = 0; x < small.width(); ++x, from += 4)
            for (int channel : {2, 1, 0}) *to++ = float(from[channel]) * (1.f / 255);
    }
}

const Network& fitting(const SubjectWeights::Networks& networks, const Bitmap& picture) {
    return picture.width() * 3 > picture.height() * 4 ? networks.landscape : networks.square;
}

}

bool SubjectMask::available() {
    return SubjectWeights::networks() != nullptr;
}

std::optional<Bitmap> SubjectMask::of(const Bitmap& picture) {
    const auto* networks = SubjectWeights::networks();
    if (!networks || picture.empty()) return {};
    const Network& network = fitting(*networks, picture);
    const Bitmap small = stretched(picture, network.input());
    Network::Run run(network);
    fill(run.input(), small);
    Bitmap mask = MaskRefinement::refined(picture, small, run.output());
    if (MaskRefinement::share(mask) < leastShare) return {};
    return mask;
}

}
