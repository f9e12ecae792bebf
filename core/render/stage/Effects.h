#pragma once

#include "platform/image/Image.h"

#include <cstdint>
#include <string_view>

/// What `effects` do to a layer's picture.
namespace murbo::Stage::Effects {

/// A picture under one effect, `held` seconds after its layer came on. A word that is no effect changes
/// nothing.
Image apply(std::string_view effect, const Image& image, double held);

/// How many looks of a frame's budget it takes.
std::int64_t cost(std::string_view effect);

}
