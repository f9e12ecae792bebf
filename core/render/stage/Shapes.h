#pragma once

#include "core/render/stage/Context.h"
#include "core/render/stage/LayerPicture.h"

#include <optional>

namespace murbo::Stage::Shapes {

/// The picture of a layer that is a shape. Nothing where its size is no size.
std::optional<LayerPicture> picture(const Context& context);

/// A picture with round corners, `radius` being a share of its shorter side; as it is without one.
Image rounded(const Image& image, std::optional<double> radius);

}
