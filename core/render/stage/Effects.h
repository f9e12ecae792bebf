#pragma once

#include "platform/image/Image.h"

#include <cstdint>
#include <string_view>

namespace murbo::Stage {

/// A picture under one effect, `held` seconds after its layer came on. A word that is no effect changes
/// nothing.
Image apply(std::string_view effect, const Image& image, double held);

/// What it counts of a frame's budget of looks.
std::int64_t costOf(std::string_view effect);

}
