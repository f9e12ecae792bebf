#pragma once

#include "core/render/stage/Context.h"
#include "core/render/stage/LayerPicture.h"

#include <optional>
#include <string>

namespace murbo::Stage::Panels {

/// A piece of the footage live, cropped to the layer's shape: "face", "content", or "picture" for all of it.
/// Nothing for any other word and without footage.
std::optional<LayerPicture> picture(const std::string& word, const Context& context);

}
