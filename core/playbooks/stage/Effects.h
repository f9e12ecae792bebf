#pragma once

#include "platform/image/Image.h"

#include <string_view>

namespace murbo::Stage {

/// A picture under one effect, `held` seconds after its layer came on. A word that is no effect changes
/// nothing.
Image apply(std::string_view effect, const Image& image, double held);

}
