#pragma once

#include "core/render/stage/Elements.h"

namespace murbo::Stage {

/// The picture of a layer that is a shape. Nothing where its size is no size.
std::optional<Made> shape(const Context& context);

/// A picture with round corners, `radius` being a share of its shorter side; as it is without one.
Image rounded(const Image& image, std::optional<double> radius);

}
