#pragma once

#include "platform/image/draw/Layer.h"

namespace murbo::Painter {

/// Draws layers into a tile, replacing what stands there. Only what can be seen is drawn: where a layer hides
/// all below it, the lower ones are left out.
void paint(Layers& layers, const Tile& tile);

}
