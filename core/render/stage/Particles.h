#pragma once

#include "core/render/stage/Context.h"

namespace murbo::Stage::Particles {

/// A scatter of emoji, letters or confetti in the frame; `text` names them, `width` is a particle's in
/// pixels. Each particle's whole way follows from its number and the layer's seed.
Image scatter(const std::string& text, const Context& context, double width);

}
