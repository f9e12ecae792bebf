#include "tests/image/FilterKinds.h"

#include "platform/image/filters/Blur.h"
#include "platform/image/filters/ColourCube.h"
#include "platform/image/filters/ColourMatrix.h"
#include "platform/image/filters/Comic.h"
#include "platform/image/filters/Glow.h"
#include "platform/image/filters/Pixel.h"
#include "platform/image/filters/Posterize.h"
#include "platform/image/filters/Vhs.h"
#include "platform/image/filters/Vignette.h"

#include <cmath>

namespace murbo::FilterKinds {
Image picture() {
    return Image::bitmap(Pictures::bitmapOf(side, side, Pictures::wavy));
}

Pictures::Pixel seen(Colour colour, const Filter& filter) {
    return Pictures::at(Pictures::drawn(Image::colour(colour).filtered(filter), 1, 1), 0, 0);
}

Bitmap filtered(const Image& picture, const Filter& filter) {
    const Image onBlack = picture.over(Image::colour(Colour::black)).cropped(whole);
    return Pictures::drawn(onBlack.clamped().filtered(filter), side, side);
}

Filter swapping(float alpha) {
    auto values = std::make_shared<std::vector<float>>();
    for (int at = 0; at < 32 * 32 * 32; ++at) {
        const float channels[] = {float(at / 1024) / 31, float(at / 32 % 32) / 31, float(at % 32) / 31, 1};
        for (const float value : channels) values->push_back(value * alpha);
    }
    return Filters::ColourCube{32, values, nullptr};
}

std::vector<std::pair<std::string_view, Filter>> all() {
    return {{"grey", Filters::ColourMatrix::mono()},
            {"sepia", Filters::ColourMatrix::sepia(0.9)},
            {"cube", swapping(0.5f)},
            {"posterize", Filters::Posterize{6}},
            {"blur", Filters::Blur{9}},
            {"glow", Filters::Glow{7, 0.9}},
            {"pixel", Filters::Pixel{13, {96, 96}}},
            {"vignette", Filters::Vignette{1.2, 2}},
            {"comic", Filters::Comic{}},
            {"vhs", Filters::Vhs{6, 2.5, 41}}};
}

}
