#pragma once

#include "core/render/stage/Context.h"
#include "core/render/stage/LayerPicture.h"

#include <optional>

/// What layers are made of.
namespace murbo::Stage::Elements {

/// A layer's picture. Nothing where it has none: no file, no source, no text.
std::optional<LayerPicture> picture(const Context& context);

}
